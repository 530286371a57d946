dida_do_travejamento : edit_box {
    edit_width = q2;
    edit_limit = 79;
}

zp_travejam : dialog {
       ok_cancel;
}
