// Travejamento: chapas que u–Ù–‹’osto.

medida_do_travejamento : edit_box {cel;
}
