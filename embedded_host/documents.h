// Documents and views.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <vector>

#include "embedded_host/handles.h"
#include "embedded_host/maps.h"
#include "embedded_host/style_tables.h"
#include "host/documents.h"

namespace egfhost {

class View;

// The style tables that hang on a document.
inline constexpr std::array<std::uint32_t, 5> kStyleTableProperties = {
    kDocumentGradientTable, kDocumentStrokeTable, kDocumentArcTable, kDocumentFillTable,
    kDocumentGdiFillTable};

class Document : public HostObject {
 public:
  static constexpr HostKind kKind = HostKind::kDocument;

  Document() : HostObject(kKind) { words_[kDocumentKind] = kDocumentKindDrawing; }
  ~Document() override;

  // Makes the map and the style tables; false when memory is short.
  bool open();

  Map* map() const { return map_; }
  HostHandle tree() const { return tree_; }

  // Takes over a tree block; the one before is destroyed.
  void setTree(HostHandle block);
  // Forgets a tree block that was destroyed by its last reference.
  void forgetTree() { tree_ = 0; }

  std::uint32_t word(std::uint32_t property) const;
  void setWord(std::uint32_t property, std::uint32_t value) { words_[property] = value; }

  HostHandle styleTable(std::uint32_t property) const;

  void addView(View* view) { views_.push_back(view); }
  void removeView(View* view) { std::erase(views_, view); }

 private:
  Map* map_ = nullptr;
  std::array<StyleTable*, kStyleTableProperties.size()> tables_{};
  HostHandle tree_ = 0;
  std::map<std::uint32_t, std::uint32_t> words_;  // the other properties
  std::vector<View*> views_;
};

class View : public HostObject {
 public:
  static constexpr HostKind kKind = HostKind::kView;

  explicit View(Document* document) : HostObject(kKind), document_(document) {
    document->addView(this);
  }
  ~View() override;

  Document* document() const { return document_; }  // null after the document ended
  void forgetDocument() { document_ = nullptr; }

  std::uint32_t word(std::uint32_t property) const;
  // Takes over a palette; the one before is freed.
  void setPalette(HostHandle palette);
  HostHandle palette() const { return palette_; }
  void setWord(std::uint32_t property, std::uint32_t value) { words_[property] = value; }

 private:
  Document* document_;
  HostHandle palette_ = 0;
  std::map<std::uint32_t, std::uint32_t> words_;
};

// The document of a document or view handle, or of a tree block that a document owns; null for
// anything else.
Document* documentOf(HostHandle handle);

}  // namespace egfhost
