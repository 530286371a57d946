pu_geracao : dialog {
  label = "Perfil U"
  ok_cancel;
}
