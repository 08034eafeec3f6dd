#include "tools/manual/manual_pdf.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>

namespace kalvo {
namespace {

using Object = QPDFObjectHandle;

constexpr double kPointsOfDot = 72 / kDotsOfInch;

Object Name(const char* name) { return Object::newName(name); }
Object Number(double value) { return Object::newReal(value, 2); }

class Finisher {
 public:
  explicit Finisher(const std::string& pdf) {
    file_.processMemoryFile("Kalvo.pdf", pdf.data(), pdf.size());
    pages_ = QPDFPageDocumentHelper(file_).getAllPages();
  }

  std::string Finish(const PdfFacts& facts) {
    SetFacts(facts.title);
    for (const PageLink& link : facts.links) AddLink(link);
    Object root = file_.getRoot();
    Object outline = file_.makeIndirectObject(Object::newDictionary());
    outline.replaceKey("/Type", Name("/Outlines"));
    AddEntries(outline, facts.outline, false);
    root.replaceKey("/Outlines", outline);
    return Written();
  }

 private:
  void SetFacts(const std::string& title) {
    Object root = file_.getRoot();
    root.removeKey("/Metadata");  // has the date, and a number made up anew each time
    root.replaceKey("/Lang", Object::newUnicodeString("el-GR"));
    root.replaceKey("/PageMode", Name("/UseOutlines"));
    Object preferences = Object::newDictionary();
    preferences.replaceKey("/DisplayDocTitle", Object::newBool(true));
    root.replaceKey("/ViewerPreferences", preferences);
    Object info = file_.makeIndirectObject(Object::newDictionary());
    info.replaceKey("/Title", Object::newUnicodeString(title));
    info.replaceKey("/Creator", Object::newUnicodeString("Kalvoflume"));
    file_.getTrailer().replaceKey("/Info", info);
  }

  Object Destination(const PagePlace& place) {
    Object destination = Object::newArray();
    destination.appendItem(pages_.at(static_cast<std::size_t>(place.page)).getObjectHandle());
    destination.appendItem(Name("/XYZ"));
    destination.appendItem(Object::newNull());
    destination.appendItem(Number((kPageHeight - place.top) * kPointsOfDot));
    destination.appendItem(Object::newNull());
    return destination;
  }

  void AddLink(const PageLink& link) {
    Object annotation = Object::newDictionary();
    annotation.replaceKey("/Type", Name("/Annot"));
    annotation.replaceKey("/Subtype", Name("/Link"));
    Object area = Object::newArray();
    for (const double side : {link.area.left(), kPageHeight - link.area.bottom(), link.area.right(),
                              kPageHeight - link.area.top()}) {
      area.appendItem(Number(side * kPointsOfDot));
    }
    annotation.replaceKey("/Rect", area);
    annotation.replaceKey("/Border", Object::parse("[0 0 0]"));
    annotation.replaceKey("/Dest", Destination(link.target));
    Object page = pages_.at(static_cast<std::size_t>(link.page)).getObjectHandle();
    if (!page.hasKey("/Annots")) page.replaceKey("/Annots", Object::newArray());
    page.getKey("/Annots").appendItem(file_.makeIndirectObject(annotation));
  }

  // A closed entry counts its parts below zero.
  void AddEntries(Object parent, const std::vector<OutlineEntry>& entries, bool closed) {
    if (entries.empty()) return;
    std::vector<Object> items;
    for (const OutlineEntry& entry : entries) {
      Object item = file_.makeIndirectObject(Object::newDictionary());
      item.replaceKey("/Title", Object::newUnicodeString(entry.title));
      item.replaceKey("/Parent", parent);
      item.replaceKey("/Dest", Destination(entry.place));
      AddEntries(item, entry.parts, true);
      items.push_back(item);
    }
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (i > 0) items[i].replaceKey("/Prev", items[i - 1]);
      if (i + 1 < items.size()) items[i].replaceKey("/Next", items[i + 1]);
    }
    const auto count = static_cast<long long>(items.size());
    parent.replaceKey("/First", items.front());
    parent.replaceKey("/Last", items.back());
    parent.replaceKey("/Count", Object::newInteger(closed ? -count : count));
  }

  std::string Written() {
    QPDFWriter writer(file_);
    writer.setOutputMemory();
    writer.setDeterministicID(true);
    writer.setObjectStreamMode(qpdf_o_generate);
    writer.write();
    const std::shared_ptr<Buffer> buffer = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize()};
  }

  QPDF file_;
  std::vector<QPDFPageObjectHelper> pages_;
};

}  // namespace

std::string FinishPdf(const std::string& pdf, const PdfFacts& facts) {
  return Finisher(pdf).Finish(facts);
}

}  // namespace kalvo
