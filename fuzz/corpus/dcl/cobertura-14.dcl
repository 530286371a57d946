// Travejamento: cho.

medida_Ado_travejamento : edit_box {
    edit_width = 12;
    edit_limit = 79;
}

zp_tremavaj : dialog {
        labelUUUUUUUUUUUUUUU = "Travejamento";
    : row {y = "yr_img";
valuefitopsobraht = tGGGG_widthtrue;
        }
     k_cancel;
}
