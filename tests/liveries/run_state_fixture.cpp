// The run state that this folder's tests start from.
#include "foundation/message_area.h"
#include "foundation/parameters.h"
#include "foundation/run_flags.h"
#include "liveries/catalogue_file.h"
#include "liveries/category_reports.h"
#include "liveries/failed_titles.h"
#include "liveries/livery_indexes.h"
#include "liveries/match_memory.h"
#include "liveries/match_summary.h"
#include "refdata/code_tables.h"
#include "refdata/model_categories.h"
#include "refdata/prefix_groups.h"
#include "refdata/similar_models.h"
#include "test_support.h"

namespace orv::test {

void resetRunState() {
  // A process starts with an empty message area; a run keeps its error on display.
  gf_resetMessageArea();
  gf_resetRunFlags();
  // The livery state of a new process: no catalogue, no matches, no refusals, empty code tables.
  gf_resetLiveryIndexes();
  liveriesScannedList.clear();
  lf_clearNoMatch();
  matchCounters = {};
  gFailedTitles.clear();
  gFailedTitleInfo.clear();
  lf_clearModelCategories();
  lf_clearSimilarModels();
  lf_clearPrefixGroups();
  gf_resetCodeTables();
  lf_showClassBox.set(nullptr);
  for (CheckboxParameter* traffic : {&LIGHT_AIRCRAFT, &HIGH_PERF_AIRCRAFT, &HELICOPTERS}) traffic->set(true);
  MATCHING_DEPTH.set(MATCHING_DEPTH.defaultValue);
  RANDOM.set(RANDOM.defaultValue);
}

}  // namespace orv::test
