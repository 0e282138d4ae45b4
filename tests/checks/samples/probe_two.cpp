// The second library that defines the same function and variables as probe_one.cpp.
#include "shared_inline.h"

int checksDuplicateProbe(int x) { return x + 2; }
int checksDuplicateValue = 8;
int checksDuplicateZero;
extern const int checksDuplicateTable[] = {4, 5, 6};
int checksOnlyInTwo() { return 2; }
int (*checksTwoInlineAddress())(int) { return &checksSharedInline; }
