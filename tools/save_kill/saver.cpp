#include "saver.h"

#include <fmt/format.h>

#include <cstdlib>

#include "engine/engine_tables.h"
#include "engine/object_id_list.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"

namespace orv::savekill {

namespace {

// ObjectIdList.txt with every line carrying the same generation in its callsign.
void fillLiveTable(std::int64_t generation) {
  gLiveAc.clear();
  for (int i = 0; i < kObjectListLines; ++i) {
    LiveAc& ac = gLiveAc.emplace_back();
    ac.simState = kActive;
    ac.objectid = static_cast<std::uint32_t>(100 + i);
    ac.cs = fmt::format("K{}", generation);
    ac.reg = fmt::format("D-K{:03}", i);
  }
}

template <class Save>
void saveNoted(FileProgress& file, std::int64_t value, std::atomic<std::int64_t>& started, Save&& save) {
  file.inProgress = value;
  ++started;
  save();
  file.completed = value;
}

}  // namespace

void runSaver(SharedProgress& progress) {
  // A start as the program makes it: read (and maybe repair) the file, then save at each change.
  gf_readParameters();
  std::int64_t value = LAST_EPOCH_TIME.value;
  progress.parameters.completed = progress.parameters.inProgress = value;
  progress.ready = true;
  for (;;) {
    ++value;
    if (value > LAST_EPOCH_TIME.maxValue) value = 0;
    saveNoted(progress.parameters, value, progress.savesStarted, [&] {
      LAST_EPOCH_TIME.set(static_cast<std::int32_t>(value));
      saveInt(LAST_EPOCH_TIME);
    });
    // The whole file anew, as after the first start of a new version: the same values.
    if (value % 4 == 0) {
      saveNoted(progress.parameters, value, progress.savesStarted, [] { gf_writeParameters(false); });
    }
    saveNoted(progress.objectList, value, progress.savesStarted, [&] {
      fillLiveTable(value);
      gf_writeObjectIdList();
    });
  }
}

}  // namespace orv::savekill
