#pragma once
// What the catalogue offers per model category, told in the log once the indexes stand; a
// traffic class without any livery is switched off for the run.
#include "foundation/hook.h"
#include "foundation/parameter.h"

namespace orv {

// The window shows a class's check box enabled (the class has liveries) or disabled; the
// program binds it, since only it knows the window. Called on the start-up thread.
inline constinit Hook<const CheckboxParameter*, bool> lf_showClassBox;

// For each category 0 to 5: the count of its pax and cargo liveries and its models. A category
// without any switches off LIGHT_AIRCRAFT, HIGH_PERF_AIRCRAFT or HELICOPTERS. Light, Buzjets
// and Rotorcraft models with a livery go to categoryModels.
void lf_reportCategories();
// The models that have a generic ("ZZZ") livery.
void lf_reportGenericLiveries();

}  // namespace orv
