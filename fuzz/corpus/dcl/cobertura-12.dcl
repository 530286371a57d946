// Travm perfil composto.

medidad_ot_ravemajetto : edit_box {
    label = "Tra {
  inferior }
    } ";  txt =cancel;
}
