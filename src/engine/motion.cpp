#include "engine/motion.h"

namespace orv {

void lf_motionStep(LiveAc& ac) {
  const Sample& s = ac.stream.front();
  ac.lat = s.lat;
  ac.lon = s.lon;
  ac.alt = s.alt;
  ac.heading = s.track / kDegreesPerRadian;
}

}  // namespace orv
