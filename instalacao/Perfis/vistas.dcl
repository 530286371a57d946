// Vista da peça no desenho: figura, alinhamento, comprimento e lista de material.

figura_da_vista : image_button {
    width = 14;
    aspect_ratio = 1.33;
    color = graphics_background;
    fixed_width = true;
    fixed_height = true;
    alignment = centered;
}

nome_da_figura : text {
    alignment = centered;
    fixed_width = true;
}

vistas_geracao : dialog {
    label = "Vista da peça";
    initial_focus = "l";
    : row {
        : boxed_row {
            label = "Vista";
            : column {
                : figura_da_vista { key = "fig1"; description = "Vista direita"; }
                : nome_da_figura { label = "Direita"; }
                : figura_da_vista { key = "fig3"; description = "Vista inferior"; }
                : nome_da_figura { label = "Inferior"; }
            }
            : column {
                : figura_da_vista { key = "fig2"; description = "Vista superior"; }
                : nome_da_figura { label = "Superior"; }
                : figura_da_vista { key = "fig4"; description = "Vista esquerda"; }
                : nome_da_figura { label = "Esquerda"; }
            }
        }
        : boxed_column {
            label = "Alinhamento";
            : row {
                : image {
                    key = "fig0";
                    description = "De onde se olha em cada vista";
                    width = 14;
                    aspect_ratio = 1.33;
                    color = graphics_background;
                    fixed_width = true;
                    fixed_height = true;
                }
                : image {
                    key = "PreviewVista";
                    description = "A vista escolhida";
                    width = 28;
                    aspect_ratio = 1.33;
                    color = graphics_background;
                    fixed_width = true;
                    fixed_height = true;
                }
            }
            : edit_box {
                key = "insertionP";
                label = "Ponto de &inserção (1 a 9)";
                edit_width = 6;
                allow_accept = true;
            }
            : slider {
                key = "ip";
                description = "Ponto de inserção";
                min_value = 1;
                max_value = 9;
                small_increment = 1;
                big_increment = 1;
            }
        }
    }
    : row {
        : boxed_column {
            label = "Comprimento";
            : edit_box { key = "l"; label = "&Comprimento (mm)"; edit_width = 12; allow_accept = true; }
            : button { key = "pick"; label = "&Medir no desenho <"; }
            : toggle { key = "pickngo"; label = "Lançar por ponto inicial e &final"; }
        }
        : boxed_column {
            label = "Lista de material";
            : toggle { key = "gerar_matlist"; label = "&Gerar lista de material"; }
            : edit_box { key = "num_pecas"; label = "&Número de peças"; edit_width = 8; allow_accept = true; }
            spacer_0;
        }
    }
    : text { key = "error"; width = 50; }
    ok_cancel;
}
