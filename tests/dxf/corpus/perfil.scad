// Section of a plain U, 200 x 75 x 3, with a row of holes and a label.
difference() {
    square([75, 200]);
    translate([3, 3]) square([75, 194]);
}
translate([120, 0]) circle(r = 10, $fn = 24);
