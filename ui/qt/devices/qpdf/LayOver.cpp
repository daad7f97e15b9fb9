// The library that PdfPage opens for a long drawing: to load that of the PDF format, with all that it needs itself,
// takes longer than to draw a short one.

#include <QByteArray>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

#include "gral/sinks/PdfObjects.h"
#include "ui/qt/devices/PdfLayers.h"

namespace vk {
namespace {

/// More packing takes five times as long for a tenth of the size.
constexpr int kFastPacking = 1;

QPDFObjectHandle streamOf(QPDF& file, const std::string& content) {
  constexpr qsizetype kLengthBefore = 4;  // which the toolkit puts before what it packs
  const QByteArray packed = qCompress(reinterpret_cast<const uchar*>(content.data()),
                                      static_cast<qsizetype>(content.size()), kFastPacking);
  QPDFObjectHandle stream = file.newStream();
  stream.replaceStreamData(packed.mid(kLengthBefore).toStdString(), QPDFObjectHandle::newName("/FlateDecode"),
                           QPDFObjectHandle::newNull());
  return stream;
}

QPDFObjectHandle objectOf(QPDF& file, const std::string& content) {
  constexpr double kReach = kPdfObjectReach;
  QPDFObjectHandle object = streamOf(file, content), dictionary = object.getDict();
  dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/XObject"));
  dictionary.replaceKey("/Subtype", QPDFObjectHandle::newName("/Form"));
  dictionary.replaceKey(
      "/BBox", QPDFObjectHandle::newArray(QPDFObjectHandle::Rectangle(-kReach, -kReach, kReach, kReach)));
  return object;
}

}  // namespace

/// A page leaves its unit in force for the layer behind it.
extern "C" Q_DECL_EXPORT void layOver(const PdfLayers& drawn, std::string& result) {
  QPDF file;
  file.processMemoryFile("figure", drawn.file.data(), drawn.file.size());
  std::vector<QPDFObjectHandle> pages = file.getAllPages();
  QPDFObjectHandle page = pages.front(), content = QPDFObjectHandle::newArray();
  QPDFObjectHandle resources = page.getKey("/Resources");
  content.appendItem(streamOf(file, "q\n"));
  for (std::size_t i = 0; i < pages.size(); ++i) {
    content.appendItem(pages[i].getKey("/Contents"));
    content.appendItem(streamOf(file, i < drawn.layers.size() ? drawn.layers[i] + "Q q\n" : "Q\n"));
    if (i == 0) continue;
    resources.mergeResources(pages[i].getKey("/Resources"));
    file.removePage(pages[i]);
  }
  for (std::size_t i = 0; i < drawn.objects.size(); ++i) {
    resources.getKey("/XObject").replaceKey(pdfObjectName(i), objectOf(file, drawn.objects[i]));
  }
  page.replaceKey("/Contents", content);
  QPDFWriter writer(file);
  writer.setOutputMemory();
  writer.setStreamDataMode(qpdf_s_preserve);
  writer.setDeterministicID(true);
  writer.write();
  const auto buffer = writer.getBufferSharedPointer();
  result.assign(reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize());
}

}  // namespace vk
