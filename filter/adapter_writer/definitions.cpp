// The definitions at the end of a file: gradients and style rules, which are complete only when the
// objects have been converted; and the entities at its start.

#include <cstring>

#include "adapter_writer/style_pools.h"
#include "adapter_writer/write_envelope.h"

namespace egfsvg {
namespace {

/// The writer that a pool is enumerated for.
CAdapterWriter& writerOf(const _adapterWriteData& data) { return *at<CAdapterWriter>(data.writer); }

/// Fills a style record and writes it; its name is released with it. Without memory for the name
/// nothing is written.
template <class SetProps>
int writeStyle(void* userData, std::int32_t type, SetProps&& setProps) {
  const auto& data = *static_cast<_adapterWriteData*>(userData);
  CAdapterWriter& writer = writerOf(data);
  WriteEnvelope<_svg_style_props> envelope(writer, data, type);
  if (!envelope) return kOutOfMemory;
  initStyleProps(envelope.record());
  setProps(writer, envelope.record());
  return envelope.record()->selector != nullptr ? envelope.write() : kOutOfMemory;
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

int _transferEntityListProc(std::uint32_t, const void* record, void* userData) {
  return writeStyle(userData, kTagEntity, [&](CAdapterWriter& writer, _svg_style_props* props) {
    writer.SetStyleProps(static_cast<const _egf_gdi_fillparms_tag*>(record), props);
  });
}

int _transferStyleListProc(std::uint32_t size, const void* record, void* userData) {
  return writeStyle(userData, kWriteRule, [&](CAdapterWriter& writer, _svg_style_props* props) {
    writer.SetStyleProps(size, record, props);
  });
}

/// What could not be had of a gradient is left out of its element.
int _gradListProc(std::uint32_t, const void* record, void* userData) {
  const auto& data = *static_cast<_adapterWriteData*>(userData);
  CAdapterWriter& writer = writerOf(data);
  WriteEnvelope<_svg_gradient> envelope(writer, data, kWriteGradient);
  if (!envelope) return kOutOfMemory;
  initGradientObj(envelope.record());
  writer.SetGradProps(static_cast<const awriter::_svg_gradient_parms*>(record), envelope.record());
  return envelope.write();
}

int CAdapterWriter::_transferGradList(_adapterWriteData* data) {
  return enumerateTable(gradientTable, sizeof(awriter::_svg_gradient_parms), _gradListProc, data);
}

/// Kept: what fails inside the definitions is not told; the closing tag's result is.
int CAdapterWriter::_transferReferencedData(_adapterWriteData* data) {
  WriteEnvelope<_svg_defs> envelope(*this, *data, kTagDefs);
  if (!envelope) return kOutOfMemory;
  initDefsObj(envelope.record());
  envelope.write();
  _transferGradList(data);
  _transferDocStyleLists(data);
  return envelope.writeAs(kTagEndDefs);
}

int CAdapterWriter::_transferDocStyleLists(_adapterWriteData* data) {
  WriteEnvelope<_objectStream> envelope(*this, *data, kTagStyle);
  if (!envelope) return kOutOfMemory;
  std::memcpy(envelope.record()->comment, data->comment, sizeof data->comment - 1);
  envelope.write();
  for (const PoolRow& pool : {kFillPool, kStrokePool}) {
    enumerateTable(poolTable(*this, pool), pool.size, _transferStyleListProc, data);
  }
  return envelope.writeAs(kTagEndStyle);
}

/// Not part of a written file.
int CAdapterWriter::_transferInteractivityData(_adapterWriteData* data) {
  WriteEnvelope<_svg_script> envelope(*this, *data, kWriteScript);
  if (!envelope) return kOutOfMemory;
  initScript(envelope.record());
  const int result = envelope.write();
  return result == kOk ? envelope.writeAs(kWriteEndScript) : result;
}

/// Not part of a written file: style rules stand in the file itself.
int CAdapterWriter::_createCSSFile() { return kOk; }
