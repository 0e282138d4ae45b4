// A library that shares nothing strong with probe_one.cpp, only the weak inline function.
#include "shared_inline.h"

int checksOtherProbe(int x) { return x + 3; }
int checksOtherValue = 9;
int (*checksOtherInlineAddress())(int) { return &checksSharedInline; }
