//slider: image {
            k: medi_gravej {
l;
}
