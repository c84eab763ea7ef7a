{
	"width": 360,
	"height": 340,
	"boxes": [
		{"varname": "eventEd_selector", "kind": "selector", "x": 0, "y": 10, "width": 320, "height": 26, "pages": [{"title": "Event"}, {"title": "Buffer"}, {"title": "Curves"}, {"title": "Message"}]},
		{"varname": "eventEd_ID", "kind": "label", "label": "Event", "x": 130, "y": 40, "width": 200, "height": 20},
		{"varname": "eventEd_bpatcher", "kind": "patcher", "x": 0, "y": 52, "width": 360, "height": 288, "boxes": [
			{"varname": "eventEd_label", "kind": "text", "x": 130, "y": 12, "width": 200, "height": 24, "label": "Label", "page": 0},
			{"varname": "eventEd_start", "kind": "number", "x": 130, "y": 44, "width": 200, "height": 24, "label": "Start", "page": 0, "unit": "ms", "minimum": 0, "step": 1},
			{"varname": "eventEd_duration", "kind": "number", "x": 130, "y": 76, "width": 200, "height": 24, "label": "Duration", "page": 0, "unit": "ms", "minimum": 1, "step": 1},
			{"varname": "eventEd_pitch", "kind": "number", "x": 130, "y": 108, "width": 200, "height": 24, "label": "Pitch", "page": 0, "unit": "semitones", "step": 0.1},
			{"varname": "eventEd_frequency", "kind": "number", "x": 130, "y": 140, "width": 200, "height": 24, "label": "Frequency", "page": 0, "unit": "Hz", "minimum": 0, "step": 1},
			{"varname": "eventEd_freq_base", "kind": "number", "x": 130, "y": 172, "width": 200, "height": 24, "label": "A above middle C", "page": 0, "unit": "Hz", "minimum": 1, "maximum": 20000, "step": 0.1},
			{"varname": "eventEd_velocity", "kind": "number", "x": 130, "y": 204, "width": 200, "height": 24, "label": "Velocity", "page": 0, "minimum": 0, "maximum": 127, "step": 1},
			{"varname": "eventEd_buffer", "kind": "text", "x": 130, "y": 12, "width": 200, "height": 24, "label": "Buffer", "page": 1},
			{"varname": "eventEd_bufferadapt", "kind": "toggle", "x": 130, "y": 44, "width": 200, "height": 24, "label": "Fit to the event", "page": 1},
			{"varname": "eventEd_bufferstart", "kind": "number", "x": 130, "y": 76, "width": 200, "height": 24, "label": "From", "page": 1, "unit": "ms", "minimum": 0, "step": 1},
			{"varname": "eventEd_bufferend", "kind": "number", "x": 130, "y": 108, "width": 200, "height": 24, "label": "To", "page": 1, "unit": "ms", "minimum": 0, "step": 1},
			{"varname": "eventEd_bpftypes", "kind": "menu", "x": 130, "y": 12, "width": 200, "height": 24, "label": "Curve", "page": 2},
			{"varname": "eventEd_bpfeditor", "kind": "table", "x": 20, "y": 44, "width": 320, "height": 200, "page": 2, "columns": [{"title": "Time (ms)"}, {"title": "Value"}]},
			{"varname": "eventEd_message", "kind": "text", "x": 130, "y": 12, "width": 200, "height": 120, "label": "Message", "page": 3}
		]}
	]
}
