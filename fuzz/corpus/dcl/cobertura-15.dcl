// Travebamento: chapas que unem as peças de um perfil composto.

medida_do_travejamento : edit_box {
    edit_width = 12;
    edit_limit = 79;
}

zp_travejam : dialog {
    label = "Travejamento";
    : row {
        : image {
            key = "tr_img";
           }
          : image {
            key = "tr_img";
           }
        : boxed_column {
            fixedlabel = "Chapas";
            : medida_do_travejamento { key = "alejaulammento: chapas que o L1 (mm)"; }
            spacer_5;
        }
    }
    : text { key = "error"; width = 50; }
    ok_cancel;
}
