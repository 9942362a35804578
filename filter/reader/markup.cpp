// Markup groups: a group whose class names the kind, with one or two members, sent as one object;
// and the same as a child of an `a`.
#include "frame/result_codes.h"
#include "model/lifecycle.h"
#include "reader/delivery.h"
#include "reader/markup_forms.h"
#include "reader/svg_handlerreader.h"

using namespace egfsvg;  // NOLINT: tag codes all over

namespace {

/// The records that members are read into. Of two, each takes one member and later members are
/// passed over; a single one takes each member in turn, so that the last remains.
struct MemberSlots {
  void* slots[2];
  int count;
};

/// How the reading of members ended.
struct MembersEnd {
  int tag = kTagEnd;
  int result = kOk;  // of the last member's parser
};

/// Reads members up to the end of the group or a syntax error.
MembersEnd readMembers(CHandlerReader& reader, _svg_group* group, const LeafKind& kind,
                       const MemberSlots& members) {
  MembersEnd end;
  int seen = 0;
  for (;;) {
    end.tag = reader.GetNextTag(nullptr);
    if (end.tag == kTagEnd || end.tag == kTagEndGroup) return end;
    if (end.tag != kind.tag || (members.count > 1 && seen == members.count)) continue;
    void* const slot = members.slots[members.count > 1 ? seen : 0];
    if (members.count == 1 && seen > 0) {
      svg_DestroyObjectAtt(slot, kind.tag);
      kind.init(slot);
    }
    ++seen;
    end.result = kind.parse(reader, slot, &group->head);
    if (end.result != kOk) return end;
  }
}

/// On to the end of a group whose members were not read to it.
void passEnd(CHandlerReader& reader, int tag) {
  while (tag != kTagEnd && tag != kTagEndGroup) tag = reader.GetNextTag(nullptr);
}

constexpr MarkupForm kForms[] = {
    {kTagCloud, kTagPolyline, sizeof(_svg_polyline), false,
     [](_svg_objects& object) { object.cloud.outline.head.parent = &object.cloud.group.head; }},
    {kTagCrossout, kTagLine, sizeof(_svg_markup_crossout), true,
     [](_svg_objects& object) {
       object.crossout.line1.head.parent = &object.crossout.group.head;
       object.crossout.line2.head.parent = &object.crossout.group.head;
     }},
    {kTagDiamond, kTagPath, sizeof(_svg_markup_diamond), true,
     [](_svg_objects& object) { object.diamond.outline.head.parent = &object.diamond.group.head; }},
    {kTagAnnotation, kTagText, sizeof(_svg_text), false,
     [](_svg_objects& object) { object.anno.note.head.parent = &object.anno.group.head; }},
};

/// Moves what a group owns into a record that begins with one. What is left keeps its place in the
/// chain of parents.
void moveGroup(_svg_group& to, _svg_group& from) {
  to = from;
  initGroupObj(&from);
  from.head.type = to.head.type;
  from.head.parent = to.head.parent;
}

/// The record with the group in front, as it is sent.
MemberSlots membersBehindGroup(int type, void* record) {
  if (type == kTagDiamond) return {{&static_cast<_svg_markup_diamond*>(record)->outline}, 1};
  auto* crossout = static_cast<_svg_markup_crossout*>(record);
  return {{&crossout->line1, &crossout->line2}, 2};
}

/// The members of a child of an `a`.
MemberSlots membersOf(_svg_objects& object) {
  switch (object.type) {
    case kTagCloud:
      return {{&object.cloud.outline}, 1};
    case kTagCrossout:
      return {{&object.crossout.line1, &object.crossout.line2}, 2};
    default:
      return {{&object.diamond.outline}, 1};
  }
}

/// Points a sent record's members at the group in front of it.
void setSentParents(const MemberSlots& members, _svg_common* group) {
  for (int i = 0; i < members.count; ++i) {
    static_cast<_svg_common*>(members.slots[i])->parent = group;
  }
}

/// Reads and sends one markup group.
int sendForm(Delivery& delivery, _svg_group* group, const MarkupForm& form, const LeafKind& kind,
             MembersEnd& end) {
  const int ownedAs = form.withGroup ? form.type : form.memberTag;
  Envelope envelope(delivery.reader(), delivery.record()->owner, form.type, form.size, ownedAs);
  if (!envelope.isReady()) return kStopQuietly;
  void* const record = envelope.payload<char>();
  const MemberSlots members =
      form.withGroup ? membersBehindGroup(form.type, record) : MemberSlots{{record}, 1};
  if (form.withGroup) initGroupObj(static_cast<_svg_group*>(record));
  for (int i = 0; i < members.count; ++i) kind.init(members.slots[i]);
  envelope.fill();
  end = readMembers(delivery.reader(), group, kind, members);
  if (end.result != kOk || delivery.reader().state.outOfMemory) return kStopQuietly;
  if (form.withGroup) {
    auto* sent = static_cast<_svg_group*>(record);
    moveGroup(*sent, *group);
    setSentParents(members, &sent->head);
  }
  return delivery.send(envelope);
}

}  // namespace

const MarkupForm* egfsvg::markupForm(int type) {
  for (const MarkupForm& form : kForms) {
    if (form.type == type) return &form;
  }
  return nullptr;
}

int CHandlerReader::EnumerateMarkupData(_handlerEnumData* record, _svg_group* group) {
  const MarkupForm* form = markupForm(group->head.type);
  const LeafKind* kind = form == nullptr ? nullptr : leafKind(form->memberTag);
  MembersEnd end{kTagNone, kOk};
  int keepGoing = kGoOn;
  if (kind != nullptr) {
    Delivery delivery(*this, record, nullptr);
    keepGoing = sendForm(delivery, group, *form, *kind, end);
  }
  const bool isCode = keepGoing != kGoOn && keepGoing != kStopQuietly;
  if (!isCode) passEnd(*this, end.tag);
  return keepGoing;
}

/// 0, or the result of the member that could not be read.
int CHandlerReader::ParseMarkupGroupsData(_svg_objects* object, _svg_group* group) {
  object->type = group->head.type;
  const MarkupForm* form = markupForm(object->type);
  if (form == nullptr || object->type == kTagAnnotation) return kOk;
  const LeafKind* kind = leafKind(form->memberTag);
  if (kind == nullptr) return kOk;
  const MemberSlots members = membersOf(*object);
  for (int i = 0; i < members.count; ++i) kind->init(members.slots[i]);
  const MembersEnd end = readMembers(*this, group, *kind, members);
  passEnd(*this, end.tag);
  moveGroup(*reinterpret_cast<_svg_group*>(&object->head), *group);
  form->setParents(*object);
  return end.result;
}
