// Demand-loaded resources, and the standard objects that stock objects refer to.

#include <map>
#include <memory>

#include "embedded_host/fault.h"
#include "embedded_host/handles.h"
#include "embedded_host/host_documents.h"
#include "embedded_host/object_tree.h"
#include "host/objects.h"

namespace egfhost {

namespace {

class DynaResource : public HostObject {
 public:
  static constexpr HostKind kKind = HostKind::kDynaResource;

  DynaResource(DynaResourceProc procedure, void* record)
      : HostObject(kKind), procedure_(procedure), record_(record) {}

  void* record() const { return record_; }
  int call(int operation, std::uintptr_t argument) {
    return procedure_(operation, record_, argument);
  }

 private:
  DynaResourceProc procedure_;
  void* record_;
};

using OwnedObject = std::unique_ptr<_egf_obj, decltype(&EEL_DestroyObject)>;

// All that resources keep: the standard objects by their references.
struct ResourceState {
  std::map<HostHandle, OwnedObject> standardObjects;
};

ResourceState& state() {
  static ResourceState resources;
  return resources;
}

}  // namespace

int dynaCall(HostHandle resource, DynaOperation operation, std::uintptr_t argument) {
  DynaResource* const found = hostObjectAs<DynaResource>(resource);
  if (found == nullptr) return -1;
  const int result = found->call(operation, argument);
  if (operation == kDynaDestroy) endHostObject(found);
  return result;
}

void* dynaRecord(HostHandle resource) {
  const DynaResource* const found = hostObjectAs<DynaResource>(resource);
  return found == nullptr ? nullptr : found->record();
}

bool setStandardObject(HostHandle reference, _egf_obj* object) {
  _egf_obj* const copy = object == nullptr ? nullptr : copyObject(object);
  if (copy == nullptr) return false;
  state().standardObjects.insert_or_assign(reference, OwnedObject(copy, &EEL_DestroyObject));
  return true;
}

void clearStandardObjects() { state().standardObjects.clear(); }

}  // namespace egfhost

HostHandle DOC_CreateDynaResource(DynaResourceProc procedure, void* record) {
  if (procedure == nullptr || record == nullptr) return 0;
  if (egfhost::faultFails(egfhost::FaultCall::DOC_CreateDynaResource)) return 0;
  const auto* const resource =
      egfhost::makeHostObject<egfhost::DynaResource>(RMM_SITE, procedure, record);
  return resource == nullptr ? 0 : resource->handle();
}

_egf_obj* ETX_ObjQueryStdObj(HostHandle reference, int, int) {
  if (egfhost::faultFails(egfhost::FaultCall::ETX_ObjQueryStdObj)) return nullptr;
  const auto& objects = egfhost::state().standardObjects;
  const auto found = objects.find(reference);
  return found == objects.end() ? nullptr : egfhost::copyObject(found->second.get());
}
