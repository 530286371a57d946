// Travejamento: chapas que unem as peças de um perfil composto.

medida_do_travejamento : edit_box {
    edit_width = 12;
    edit_limit = 79;
    allow_accept = true;
}

zp_travejam : dialog {
    label = "Travejamento";
    : row {
        : image {
            key = "tr_img";
            description = "Altura A, largura C e espaçamento L1 das chapas";
            width = 34;
            aspect_ratio = 1.33;
            color = graphics_background;
            fixed_width = true;
            fixed_height = true;
        }
        : boxed_column {
            label = "Chapas";
            : medida_do_travejamento { key = "altura"; label = "&Altura A (mm)"; }
            : medida_do_travejamento { key = "largura"; label = "&Largura C (mm)"; }
            : medida_do_travejamento { key = "n_partes"; label = "&Número de partes n"; }
            : medida_do_travejamento { key = "l_travejam"; label = "&Espaçamento L1 (mm)"; }
            spacer_0;
        }
    }
    : text { key = "error"; width = 50; }
    ok_cancel;
}
