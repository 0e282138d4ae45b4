#pragma once
// The registration lists beside the catalogue: AIG-regcodes and the user's input/my_regcodes
// files, which bind titles to registrations and mark special and unique liveries.
namespace orv {

// Applies both kinds of file to the regcode indexes; after the in-line regcodes.
void gf_processOfflineRegcodes();

}  // namespace orv
