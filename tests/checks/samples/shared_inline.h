#pragma once
// An inline function: every library that uses it holds a weak copy, which is no duplicate.
inline int checksSharedInline(int x) { return x * 3 + 1; }
