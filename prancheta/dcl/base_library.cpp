// SPDX-License-Identifier: MIT
// Text of the base library.
#include "prancheta/dcl/base_library.h"

namespace prancheta::dcl {

const std::string_view kBaseText = R"dcl(
// Tiles of one text line do not grow in height.
button       : button       { fixed_height = true; }
edit_box     : edit_box     { fixed_height = true; }
popup_list   : popup_list   { fixed_height = true; }
radio_button : radio_button { fixed_height = true; }
toggle       : toggle       { fixed_height = true; }
text         : text         { fixed_height = true; }
text_part    : text_part    { fixed_height = true; fixed_width = true; }

spacer_0 : spacer { width = 0; height = 0; }
spacer_1 : spacer { width = 1; height = 1; }

default_button    : button { is_default = true; }
retirement_button : button { fixed_width = true; width = 8; alignment = centered; }

ok_button     : retirement_button { key = "accept"; label = "OK"; is_default = true; }
cancel_button : retirement_button { key = "cancel"; label = "Cancelar"; is_cancel = true; }
help_button   : retirement_button { key = "help"; label = "Ajuda"; }
info_button   : retirement_button { key = "info"; label = "Informações..."; }

exit_row : row { fixed_width = true; fixed_height = true; alignment = centered; children_equal_width = true; }

ok_only   : exit_row { : ok_button { is_cancel = true; } }
ok_cancel : exit_row { ok_button; cancel_button; }
ok_cancel_help      : exit_row { ok_button; cancel_button; help_button; }
ok_cancel_help_info : exit_row { ok_button; cancel_button; help_button; info_button; }

errtile : text { key = "error"; width = 35; }
ok_cancel_help_errtile : column { fixed_height = true; ok_cancel_help; errtile; }
)dcl";

}  // namespace prancheta::dcl
