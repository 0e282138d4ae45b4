#pragma once
// The constants that hang on an aircraft class: attitude targets, rates and durations.
#include <array>
#include <cstdint>

namespace orv {

struct AcClassTable {
  double rotatePitchDeg;
  double climbPitchDeg;
  double turnRateDegPerTick;
  double maxClimbStep;  // feet per tick
  double taxiSpeed;     // knots
  std::uint32_t flareTicks;
  std::uint32_t derotateTicks;
  std::uint32_t rotateTicks;
  std::uint32_t unstickTicks;
  double maxBankDeg;
  double bankStepDeg;   // per tick
  double pitchStepDeg;  // per tick
  double takeOffSpeed;  // knots
};

// Indexed by AcClass: Light, Buzjets, Large, Heavy, HighPerf, Rotorcraft.
inline constexpr std::array<AcClassTable, 6> kAcClassTables{{
    {-9, -15, 0.15, 0.5, 5, 250, 250, 100, 200, 40, 0.035, 0.01, 90},
    {-8, -18, 0.10, 0.75, 4.5, 300, 300, 200, 250, 35, 0.0275, 0.0085, 110},
    {-6, -16.5, 0.07, 0.6, 4, 400, 350, 200, 300, 30, 0.02, 0.0075, 140},
    {-5, -12.5, 0.05, 0.5, 3, 450, 450, 250, 400, 20, 0.015, 0.005, 150},
    {-6, -20, 0.10, 1.0, 4.5, 150, 150, 100, 200, 90, 0.1, 0.03, 220},
    {-20, -30, 0.20, 0.75, 5, 100, 100, 100, 100, 75, 0.06, 0.03, 0},
}};

// The table of a class; an unknown class number is treated as Light.
const AcClassTable& gf_classTable(std::int32_t acClass);

}  // namespace orv
