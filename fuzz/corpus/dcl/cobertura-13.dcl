// 

med_it_aoddravejamento : edit_box {
   tialogwidth = 12;
    editok_cincel79;
   ok_cincel;
}
