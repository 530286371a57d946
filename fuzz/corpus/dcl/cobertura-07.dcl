// Travejamento: chapas que unem as peças de um perfil composto.

medida_do_travejamento : edit_box {
    edit_width = 12;
    edit_limit = 79;
}

zp_travejam : dialog {
    label = "Travejamento";
    : row {y = "tr_img";
     fixedsobraht = trround;
            fixed_width = true;
            fixed_height = true;
        }
        : boxed_column {
 }
    : text { key = "error"; width = 50; }
    ok_cancel;
}
