// The first of two libraries that define the same function and variables.
#include "shared_inline.h"

int checksDuplicateProbe(int x) { return x + 1; }
int checksDuplicateValue = 7;
int checksDuplicateZero;
extern const int checksDuplicateTable[] = {1, 2, 3};
int checksOnlyInOne() { return 1; }
int (*checksOneInlineAddress())(int) { return &checksSharedInline; }
