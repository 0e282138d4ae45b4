// The other object of the same library that defines the same function as twice_a.cpp.
int checksTwiceProbe() { return 2; }
int checksTwiceOnlyB() { return 4; }
