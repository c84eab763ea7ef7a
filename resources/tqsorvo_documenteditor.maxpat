{
	"width": 360,
	"height": 330,
	"boxes": [
		{"varname": "documentEd_selector", "kind": "selector", "x": 0, "y": 10, "width": 240, "height": 26, "pages": [{"title": "Document"}, {"title": "Meter"}]},
		{"varname": "documentEd_bpatcher", "kind": "patcher", "x": 0, "y": 44, "width": 360, "height": 286, "boxes": [
			{"varname": "filename", "kind": "label", "x": 130, "y": 12, "width": 200, "height": 24, "label": "File", "page": 0},
			{"varname": "documentEd_title", "kind": "text", "x": 130, "y": 44, "width": 200, "height": 24, "label": "Title", "page": 0},
			{"varname": "documentEd_author", "kind": "text", "x": 130, "y": 76, "width": 200, "height": 24, "label": "Author", "page": 0},
			{"varname": "documentEd_memo", "kind": "text", "x": 130, "y": 108, "width": 200, "height": 120, "label": "Memo", "page": 0},
			{"varname": "documentEd_signature", "kind": "table", "x": 20, "y": 12, "width": 320, "height": 240, "label": "Time signatures", "page": 1, "columns": [{"title": "From bar"}, {"title": "Beats"}, {"title": "Note value"}], "growing": 1}
		]}
	]
}
