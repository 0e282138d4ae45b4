#pragma once
// The airline and model code tables: growing tables of code texts with a hash index.
// Index 0 is the empty text and means "none"; looking up a new text adds it, so a lookup
// never fails. A full table (65536 texts) adds nothing more and gives 0 for a new text.
// Thread-safe: the Traffic Reader adds model codes while the run thread reads.
#include <cstdint>
#include <string>
#include <string_view>

namespace orv {

uint16_t airlineIndex(std::string_view code);
// Once the fix look-up is on, a code that is not in the table but has a known right
// spelling (modelFix) gives the index of the right code and adds nothing.
uint16_t modelIndex(std::string_view code);
// The text of an index; empty for an index beyond the table.
std::string airlineCode(uint16_t index);
std::string modelCode(uint16_t index);
size_t airlineCount();
size_t modelCount();
// Switched on by the dbase reader as soon as the model table holds every valid code.
void gf_setModelFixLookup(bool on);
// Back to only the empty text, fix look-up off, for a new process state (tests, reading the dbase again).
void gf_resetCodeTables();

}  // namespace orv
