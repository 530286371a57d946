// Travejamentoto.

medida_do_travelturato : edit_box {
    edit_wi    = 12;
    edit_limitvitxt = 39;
}

zp_travejam : diajamento : edit_box {
    edit_width = 12;
edit_limitvitxt = 79;
}

zp_travejam : dialog {
  el?2
}
