// Diálogos dos comandos de perfis. As partes comuns vêm primeiro; cada comando monta o seu diálogo com elas.

// ---- Peças de um só controle --------------------------------------------------------------------

// A lista mostra, enquanto se digita, o que atende à busca; Enter toma a primeira linha.
busca : edit_box {
    key = "busca";
    label = "Bus&ca";
    edit_limit = 79;
    reports_typing = true;
}

// Os títulos ficam sobre as colunas da lista; onde columns_of não é conhecido, nas mesmas paradas de tabulação.
titulo_das_colunas : text {
    columns_of = "lista";
    width = 34;
    tabs = "8 15 22";
    fixed_width_font = true;
}

catalogo : list_box {
    key = "lista";
    description = "Bitolas do catálogo";
    width = 34;
    height = 14;
    tabs = "8 15 22";
    fixed_width_font = true;
    allow_accept = true;
}

medida : edit_box {
    edit_width = 10;
    edit_limit = 79;
    allow_accept = true;
}

altura_h : medida { key = "h"; label = "&Altura h (mm)"; }
aba_b : medida { key = "b"; label = "A&ba b (mm)"; }
largura_b : medida { key = "b"; label = "Largura &b (mm)"; }
espessura_t : medida { key = "t"; label = "&Espessura t (mm)"; }
enrijecedor_a : medida { key = "a"; label = "E&nrijecedor a (mm)"; }

// ---- Conjuntos ----------------------------------------------------------------------------------

// Edição do catálogo; Remover espera a escolha de uma linha.
botoes_do_catalogo : row {
    fixed_width = true;
    alignment = centered;
    : button { key = "addtolist"; label = "A&dicionar"; }
    : button { key = "substolist"; label = "S&ubstituir"; }
    : button { key = "deltolist"; label = "&Remover"; is_enabled = false; }
}

figura : image {
    width = 26;
    aspect_ratio = 1.33;
    color = graphics_background;
}

// Figura da seção e, ao lado, a seção digitada em escala, que ocupam o que sobra da coluna; escolha da vista, ponto de
// inserção, cotas e função da barra.
vista_e_insercao : column {
    : row {
        : figura { key = "showall"; description = "Figura da seção"; }
        : figura { key = "escala"; description = "Seção digitada, em escala"; }
    }
    : boxed_column {
        label = "Vista";
        fixed_height = true;
        : row {
            fixed_height = true;
            : toggle { key = "vista0"; label = "&Somente seção"; }
            : button { key = "OutraVista"; label = "&Outra vista..."; }
        }
        : popup_list { key = "ins_list"; label = "&Inserção"; edit_width = 16; }
        : toggle { key = "visualizar"; label = "&Visualizar inserção"; }
    }
    : row {
        fixed_height = true;
        : toggle { key = "dimensionar"; label = "Co&tas automáticas"; }
        : button { key = "ButtonTipoBarra"; label = "Ti&po de barra..."; }
    }
}

// Aviso que não impede, mensagem de erro e saída; os valores da peça anterior, quando há uma.
rodape : column {
    : text { key = "aviso"; width = 50; }
    : text { key = "error"; width = 50; }
    : row {
        : button { key = "ultima"; label = "Ú&ltima peça"; is_enabled = false; fixed_width = true; }
        ok_cancel;
    }
}

// ---- Comandos de uma peça -----------------------------------------------------------------------

// perfilu
pu_geracao : dialog {
    label = "Perfil U dobrado";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt (mm)"; }
            catalogo;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
            }
        }
        vista_e_insercao;
    }
    rodape;
}

// pcantoneira
pl_geracao : dialog {
    label = "Cantoneira dobrada";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt\ta (mm)"; }
            catalogo;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                // A aba da bitola não entra no desenho: fica na lista e nos roteiros, fora da janela.
                : enrijecedor_a { label = "Aba (não usada)"; is_hidden = true; }
            }
            : toggle { key = "travejar"; label = "Trave&jar"; }
        }
        vista_e_insercao;
    }
    rodape;
}

// perfilur
pur_geracao : dialog {
    label = "Perfil U enrijecido";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt\ta (mm)"; }
            catalogo;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                enrijecedor_a;
            }
        }
        vista_e_insercao;
    }
    rodape;
}

// perfilz
pz_geracao : dialog {
    label = "Perfil Z dobrado";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt\ta (mm)"; }
            catalogo;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                enrijecedor_a;
            }
        }
        vista_e_insercao;
    }
    rodape;
}

// perfilc
pc_geracao : dialog {
    label = "Perfil cartola";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt\ta (mm)"; }
            catalogo;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                : aba_b { label = "Topo &b (mm)"; }
                espessura_t;
                : enrijecedor_a { label = "Aba exter&na a (mm)"; }
            }
            : toggle { key = "travejar"; label = "Trave&jar"; }
        }
        vista_e_insercao;
    }
    rodape;
}

// perfilcaixa
pcaixa_geracao : dialog {
    label = "Caixa de dois perfis U enrijecidos";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt\ta (mm)"; }
            catalogo;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                enrijecedor_a;
            }
            : toggle { key = "travejar"; label = "Trave&jar"; }
        }
        vista_e_insercao;
    }
    rodape;
}

// perfilbox
pbox_geracao : dialog {
    label = "Tubo retangular";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt (mm)"; }
            catalogo;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                largura_b;
                espessura_t;
            }
        }
        vista_e_insercao;
    }
    rodape;
}

// perfiltubo
ptb_geracao : dialog {
    label = "Tubo redondo";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "d\tdi (mm)"; }
            catalogo;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                : medida { key = "d"; label = "Diâ&metro externo d (mm)"; }
                : medida { key = "di"; label = "Espessura da par&ede di (mm)"; }
            }
        }
        vista_e_insercao;
    }
    rodape;
}

// perfilbarraredonda
pbr_geracao : dialog {
    label = "Barra redonda";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "d (mm)"; }
            catalogo;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                : medida { key = "d"; label = "Diâ&metro d (mm)"; }
            }
        }
        vista_e_insercao;
    }
    rodape;
}

// bnlaminado
bnlam_geracao : dialog {
    label = "Cantoneira laminada de abas iguais";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt (mm)\tkg/m"; }
            catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
            }
        }
        vista_e_insercao;
    }
    rodape;
}

// perfilcl, e cantoneiracaixalaminada com o seu título
pllam_geracao : dialog {
    key = "titulo";
    label = "Cantoneira laminada";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt (mm)\tkg/m"; }
            catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
            }
        }
        vista_e_insercao;
    }
    rodape;
}

// PERFILULAMINADO
pulam_geracao : dialog {
    label = "Perfil U laminado";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt (mm)\tkg/m"; }
            catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
            }
        }
        vista_e_insercao;
    }
    rodape;
}

// ---- Perfis I -----------------------------------------------------------------------------------

altura_H : medida { key = "h"; label = "&Altura H (mm)"; }
alma_tw : medida { key = "a"; label = "Espessura da al&ma tw (mm)"; }

dimensoes_do_I : boxed_column {
    label = "Dimensões";
    altura_H;
    : largura_b { label = "Largura das mesas &B (mm)"; }
    : espessura_t { label = "&Espessura das mesas tf (mm)"; }
    alma_tw;
}

// vigai
vi_geracao : dialog {
    label = "Viga I soldada";
    : row {
        : column {
            : boxed_radio_row {
                label = "Bitolas";
                : radio_button { key = "rb_user"; label = "&Favoritos"; }
                : radio_button { key = "rb_vs"; label = "VS"; }
                : radio_button { key = "rb_cvs"; label = "CVS"; }
                : radio_button { key = "rb_cs"; label = "CS"; }
            }
            busca;
            : titulo_das_colunas { key = "vitxt"; label = "  H        B          tf        tw"; width = 38; }
            : catalogo { tabs = "11 22 32"; width = 38; }
            botoes_do_catalogo;
            dimensoes_do_I;
        }
        vista_e_insercao;
    }
    rodape;
}

// perfilpsa
psa_geracao : dialog {
    label = "Perfil I soldado assimétrico";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "H\tbb\ttb\tbc\ttc\ttw (mm)"; tabs = "7 14 21 28 35"; width = 42; }
            : catalogo { tabs = "7 14 21 28 35"; width = 42; }
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_H;
                : medida { key = "bc"; label = "Mesa superior: lar&gura bc (mm)"; }
                : medida { key = "tc"; label = "Mesa superior: &espessura tc (mm)"; }
                : medida { key = "bb"; label = "Mesa inferior: largura &bb (mm)"; }
                : medida { key = "tb"; label = "Mesa i&nferior: espessura tb (mm)"; }
                alma_tw;
            }
        }
        vista_e_insercao;
    }
    rodape;
}

// perfilil
vi_lam_geracao : dialog {
    key = "vilam_dlg";
    label = "I Laminado";
    : row {
        : column {
            : boxed_radio_row {
                label = "Bitolas";
                : radio_button { key = "rd_acominas"; label = "Açomi&nas"; }
                : radio_button { key = "rd_europe"; label = "Europeus"; }
                : radio_button { key = "rd_usa"; label = "Americanos"; }
            }
            busca;
            : titulo_das_colunas { key = "list_title"; tabs = "12 20"; }
            : catalogo { tabs = "12 20"; }
            botoes_do_catalogo;
            dimensoes_do_I;
        }
        vista_e_insercao;
    }
    rodape;
}

// ---- Comandos de duas peças unidas por chapas ---------------------------------------------------

// Catálogo de cinco colunas.
catalogo_com_aba : catalogo { tabs = "8 15 22 27"; }

vao_a : medida { key = "a"; label = "Vão entre as peças a (&mm)"; }
largura_total_a : medida { key = "a"; label = "Lar&gura total a (mm)"; }
enrijecedor_e : medida { key = "e"; label = "E&nrijecedor e (mm)"; }

botao_travejar : button { key = "travejar"; label = "Trave&jar..."; fixed_width = true; alignment = centered; }

// cantdteel
p2la_lam_geracao : dialog {
    label = "Duas cantoneiras laminadas em T";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt (mm)\tkg/m"; }
            catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                vao_a;
            }
            botao_travejar;
        }
        vista_e_insercao;
    }
    rodape;
}

// cantdul
plf_lam_geracao : dialog {
    label = "Duas cantoneiras laminadas em U";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt (mm)\tkg/m"; }
            catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                largura_total_a;
            }
            botao_travejar;
        }
        vista_e_insercao;
    }
    rodape;
}

// pcdtee
p2la_geracao : dialog {
    label = "Duas cantoneiras dobradas em T";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt\ta (mm)"; }
            catalogo;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                vao_a;
            }
            botao_travejar;
        }
        vista_e_insercao;
    }
    rodape;
}

// pcantoneiradu
plf_geracao : dialog {
    label = "Duas cantoneiras dobradas em U";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt\ta (mm)"; }
            catalogo;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                largura_total_a;
            }
            botao_travejar;
        }
        vista_e_insercao;
    }
    rodape;
}

// perfildvv
plv_geracao : dialog {
    label = "Duas cantoneiras dobradas em X";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt\ta (mm)"; }
            catalogo;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                vao_a;
            }
            botao_travejar;
        }
        vista_e_insercao;
    }
    rodape;
}

// cantdvvl
plv_lam_geracao : dialog {
    label = "Duas cantoneiras laminadas em X";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt (mm)\tkg/m"; }
            catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                vao_a;
            }
            botao_travejar;
        }
        vista_e_insercao;
    }
    rodape;
}

// perfil2u
p2ua_geracao : dialog {
    label = "Dois perfis U dobrados em I";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt\ta (mm)"; }
            catalogo;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                vao_a;
            }
            botao_travejar;
        }
        vista_e_insercao;
    }
    rodape;
}

// perfil2uenr
p2uenr_geracao : dialog {
    label = "Dois perfis U enrijecidos em I";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt\ta\te (mm)"; tabs = "8 15 22 27"; }
            catalogo_com_aba;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                vao_a;
                enrijecedor_e;
            }
            botao_travejar;
        }
        vista_e_insercao;
    }
    rodape;
}

// perfil2ulam
p2ulam_geracao : dialog {
    label = "Dois perfis U laminados em I";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt (mm)\tkg/m"; }
            catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                vao_a;
            }
            botao_travejar;
        }
        vista_e_insercao;
    }
    rodape;
}

// perfilcantcruzlaminado
pcclam_geracao : dialog {
    label = "Duas cantoneiras laminadas em cruz";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt (mm)\tkg/m"; }
            catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                vao_a;
                : medida { key = "av"; label = "Vão &na altura av (mm)"; }
            }
            : popup_list { key = "plano"; label = "C&hapas"; edit_width = 18; }
            botao_travejar;
        }
        vista_e_insercao;
    }
    rodape;
}

// perfilcantzlaminado
pczlam_geracao : dialog {
    label = "Duas cantoneiras laminadas em Z";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt (mm)\tkg/m"; }
            catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                vao_a;
                : medida { key = "av"; label = "Des&nível av (mm)"; }
            }
            botao_travejar;
        }
        vista_e_insercao;
    }
    rodape;
}

// perfilduc
p2uf_geracao : dialog {
    label = "Caixa de dois perfis U dobrados";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt\ta (mm)"; }
            catalogo;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                largura_total_a;
            }
            botao_travejar;
        }
        vista_e_insercao;
    }
    rodape;
}

// perfilicartola
i2c_geracao : dialog {
    label = "Dois perfis cartola em I";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt\ta\te (mm)"; tabs = "8 15 22 27"; }
            catalogo_com_aba;
            botoes_do_catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                vao_a;
                enrijecedor_e;
            }
            botao_travejar;
        }
        vista_e_insercao;
    }
    rodape;
}

// perfiluulaminado
puulam_geracao : dialog {
    label = "Caixa de dois perfis U laminados";
    initial_focus = "lista";
    : row {
        : column {
            busca;
            : titulo_das_colunas { label = "h\tb\tt (mm)\tkg/m"; }
            catalogo;
            : boxed_column {
                label = "Dimensões";
                altura_h;
                aba_b;
                espessura_t;
                largura_total_a;
            }
            botao_travejar;
        }
        vista_e_insercao;
    }
    rodape;
}

// ---- Função da barra na estrutura ---------------------------------------------------------------

tipo_barras : dialog {
    label = "Tipo de barra";
    : boxed_radio_column {
        key = "TipoRow";
        label = "Função na estrutura";
        : radio_button { key = "bt_barra"; label = "&Barra simples"; }
        : radio_button { key = "bt_mt"; label = "&Montante"; }
        : radio_button { key = "bt_di"; label = "&Diagonal"; }
        : radio_button { key = "bt_bi"; label = "Banzo &inferior"; }
        : radio_button { key = "bt_bs"; label = "Banzo &superior"; }
        : radio_button { key = "bt_viga"; label = "&Viga"; }
        : radio_button { key = "bt_pilar"; label = "&Pilar"; }
        : radio_button { key = "bt_terca"; label = "&Terça"; }
    }
    ok_cancel;
}
