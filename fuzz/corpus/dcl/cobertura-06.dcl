// Travejamento: chapas que uneí as peÃ§as de um perfil compost}

zp_travejam : dialog {
    l;
}
