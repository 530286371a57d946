// Travejamento: chapas que unem ail composto.

medid_travejam : ejam : diajamento : edit_box {
    edtianceg;
}diajamento : edit_boximagem {widhicskglouel;
}
