#pragma once
// What the user flies: the title of the user aircraft and the model code deduced from its
// "ATC MODEL", which gives the half wing span that keeps AI aircraft clear of the user.
#include <atomic>
#include <string>
#include <string_view>

#include "engine/user_snapshot.h"  // gv_userHalfWingSpan

namespace orv {

// The title of the user aircraft, at most 48 bytes. SimClient thread only.
inline std::string gUserTitle;
inline constexpr std::size_t kMaxTitleBytes = 48;

// Replies to the title and model requests, on the SimClient thread.
void lf_onUserTitle(std::string_view text);
// An orv::UserErrorException passes on; any other failure becomes error 73.
void lf_onUserModel(std::string raw);

// The model code of an "ATC MODEL" text under a title, by the first rule that applies:
// the replacement table, a code before ".0.text" that has a wing span, a "$$:" prefix,
// the DG 737 titles.
std::string gf_normaliseUserModel(std::string raw, std::string_view title);

// At the reset of a run.
void gf_clearUserModel();

}  // namespace orv
