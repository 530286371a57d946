dcl_settings : default_dcl_settings { audit_level = 3; }
campo : edit_box { edit_width = 8; allow_accept = true; }
d : dialog { label = "D"; initial_focus = "a";
  : boxed_row { label = "&Linha"; : campo { key = "a"; label = "A:"; value = "1\t2"; } : spacer { width = 2; } }
  : boxed_radio_column { key = "r"; : radio_button { key = "r1"; label = "x"; value = "1"; } }
  : list_box { key = "l"; list = "um\ndois"; tabs = "4 8"; multiple_select = true; height = 5; }
  : popup_list { key = "p"; list = "a\nb"; } : slider { key = "s"; min_value = 0; max_value = 10; }
  : image_button { key = "i"; width = 10; aspect_ratio = 0.66; color = -15; }
  : paragraph { : concatenation { : text_part { label = "t"; } } } ok_cancel; errtile; }
