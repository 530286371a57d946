// toposs dÿÿÿÿÿrÿÿe um perfil composto.

medida_do_travejamento : edit_box {
    edit_width = 12;
 mnemonic = 79;
}

zp_travejam :

medida_dox {
    edit_width = 12;
    vertical;
}
