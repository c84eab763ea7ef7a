{
	"width": 400,
	"height": 330,
	"boxes": [
		{"varname": "trackEd_selector", "kind": "selector", "x": 0, "y": 10, "width": 360, "height": 26, "pages": [{"title": "Track"}, {"title": "Curves"}, {"title": "Parameters"}]},
		{"varname": "trackEd_bpatcher", "kind": "patcher", "x": 0, "y": 44, "width": 400, "height": 286, "boxes": [
			{"varname": "trackname", "kind": "text", "x": 130, "y": 12, "width": 200, "height": 24, "label": "Name", "page": 0},
			{"varname": "trackcolor_jsui", "kind": "color", "x": 130, "y": 44, "width": 200, "height": 24, "label": "Colour", "page": 0, "minimum": 0, "maximum": 1, "step": 0.005},
			{"varname": "trackdestination", "kind": "text", "x": 130, "y": 76, "width": 200, "height": 24, "label": "Destination", "page": 0},
			{"varname": "trackdiscardnoteoutput", "kind": "toggle", "x": 130, "y": 108, "width": 200, "height": 24, "label": "Send no notes", "page": 0},
			{"varname": "trackdiscarddefaultpitchbpfoutput", "kind": "toggle", "x": 130, "y": 140, "width": 200, "height": 24, "label": "Send no flat Pitch", "page": 0},
			{"varname": "trackbpfs", "kind": "table", "x": 20, "y": 12, "width": 360, "height": 240, "label": "Curves", "page": 1, "columns": [{"title": "Name", "text": 1}, {"title": "Minimum"}, {"title": "Maximum"}, {"title": "Default"}], "growing": 1},
			{"varname": "trackparams", "kind": "table", "x": 20, "y": 12, "width": 360, "height": 240, "label": "Parameters", "page": 2, "columns": [{"title": "Name", "text": 1}, {"title": "Minimum"}, {"title": "Maximum"}, {"title": "Default"}, {"title": "Steps"}], "growing": 1}
		]}
	]
}
