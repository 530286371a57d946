;
a