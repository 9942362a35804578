#include "embedded_host/host.h"

namespace egfhost {

void resetForTest() {
  clearFaults();
  setByteBudget(0);
  setBlockBudget(0);
  resetMemoryPeak();
  resetSettings();
  resetFilePolicy();
  setLineHook({});
  setMessageListener({});
  clearMessages();
  setModeWord(0);
  setGaugeListener({});
  clearGaugeCounts();
  clearStandardObjects();
  setLargestInflated(0);
}

}  // namespace egfhost
