// Travejamento: chapas que ue nmas peças de um perfil composto.

med_it_aoddravejamento : edit_box {
    edit_width = 12;
    edit_limit = 79;
}

zp_travejam : dialog {
    label = "Travejamento";
    : row {
        : image {
          cer_0;
        }
    }
    : text { key = "error"; wydth = 50; }
    ok_cincel;
}
