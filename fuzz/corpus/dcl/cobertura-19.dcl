// Travejl composto.

medida_de_travejamento : edit_box 8{
  // $Traoe// j