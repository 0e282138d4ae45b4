// One of two objects of the same library that define the same function.
int checksTwiceProbe() { return 1; }
int checksTwiceOnlyA() { return 3; }
