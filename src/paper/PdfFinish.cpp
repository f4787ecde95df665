#include "paper/PdfFinish.h"

#include <QXmlStreamWriter>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>
#include <qpdf/QUtil.hh>

#include <exception>
#include <stdexcept>
#include <string>

#include "core/foundation/Log.h"
#include "paper/DrawnTexts.h"
#include "paper/PaperDocument.h"
#include "paper/PdfSigns.h"

namespace sanovia {
namespace {

using Handle = QPDFObjectHandle;

constexpr int kSecondsOfMinute = 60;

const QString kCreator = QStringLiteral("Sanovia");
const QString kRdf = QStringLiteral("http://www.w3.org/1999/02/22-rdf-syntax-ns#");
const QString kDublinCore = QStringLiteral("http://purl.org/dc/elements/1.1/");
const QString kXmp = QStringLiteral("http://ns.adobe.com/xap/1.0/");
const QString kPdf = QStringLiteral("http://ns.adobe.com/pdf/1.3/");

QString producer() { return QStringLiteral("Qt ") + QString::fromLatin1(qVersion()); }

Handle textString(const QString& text) { return Handle::newUnicodeString(text.toStdString()); }

// The minutes count westward there.
QUtil::QPDFTime timeOf(const QDateTime& moment) {
  const QDate day = moment.date();
  const QTime time = moment.time();
  return {day.year(),
          day.month(),
          day.day(),
          time.hour(),
          time.minute(),
          time.second(),
          -moment.offsetFromUtc() / kSecondsOfMinute};
}

// <dc:title><rdf:Alt><rdf:li>...</rdf:li></rdf:Alt></dc:title>
void writeList(QXmlStreamWriter& xml, const QString& name, const QString& list, const QString& text) {
  xml.writeStartElement(kDublinCore, name);
  xml.writeStartElement(kRdf, list);
  xml.writeStartElement(kRdf, QStringLiteral("li"));
  if (list == QStringLiteral("Alt"))
    xml.writeAttribute(QStringLiteral("xml:lang"), QStringLiteral("x-default"));
  xml.writeCharacters(text);
  for (int i = 0; i < 3; ++i) xml.writeEndElement();
}

void writeDescription(QXmlStreamWriter& xml, const DocumentInfo& info) {
  xml.writeStartElement(kRdf, QStringLiteral("Description"));
  xml.writeAttribute(kRdf, QStringLiteral("about"), QString());
  xml.writeTextElement(kDublinCore, QStringLiteral("format"), QStringLiteral("application/pdf"));
  writeList(xml, QStringLiteral("title"), QStringLiteral("Alt"), info.title);
  writeList(xml, QStringLiteral("description"), QStringLiteral("Alt"), info.subject);
  writeList(xml, QStringLiteral("language"), QStringLiteral("Bag"), info.language);
  xml.writeTextElement(kXmp, QStringLiteral("CreatorTool"), kCreator);
  xml.writeTextElement(kXmp, QStringLiteral("CreateDate"),
                       QString::fromStdString(QUtil::qpdf_time_to_iso8601(timeOf(info.created))));
  xml.writeTextElement(kPdf, QStringLiteral("Producer"), producer());
  xml.writeEndElement();
}

QByteArray metadata(const DocumentInfo& info) {
  const QString packet = QStringLiteral("xpacket");
  const QString adobe = QStringLiteral("adobe:ns:meta/");
  QByteArray bytes;
  QXmlStreamWriter xml(&bytes);
  xml.writeProcessingInstruction(packet, QStringLiteral("begin=\"\uFEFF\" id=\"W5M0MpCehiHzreSzNTczkc9d\""));
  xml.writeNamespace(adobe, QStringLiteral("x"));
  xml.writeStartElement(adobe, QStringLiteral("xmpmeta"));
  xml.writeNamespace(kRdf, QStringLiteral("rdf"));
  xml.writeNamespace(kDublinCore, QStringLiteral("dc"));
  xml.writeNamespace(kXmp, QStringLiteral("xmp"));
  xml.writeNamespace(kPdf, QStringLiteral("pdf"));
  xml.writeStartElement(kRdf, QStringLiteral("RDF"));
  writeDescription(xml, info);
  xml.writeEndElement();
  xml.writeEndElement();
  xml.writeProcessingInstruction(packet, QStringLiteral("end=\"w\""));
  return bytes;
}

void replaceInfo(QPDF& document, const DocumentInfo& info) {
  Handle entries = Handle::newDictionary();
  entries.replaceKey("/Title", textString(info.title));
  entries.replaceKey("/Subject", textString(info.subject));
  entries.replaceKey("/Creator", textString(kCreator));
  entries.replaceKey("/Producer", textString(producer()));
  entries.replaceKey("/CreationDate", Handle::newString(QUtil::qpdf_time_to_pdf_time(timeOf(info.created))));
  document.getTrailer().replaceKey("/Info", document.makeIndirectObject(entries));
}

void describe(QPDF& document, const DocumentInfo& info) {
  Handle stream = Handle::newStream(&document, metadata(info).toStdString());
  stream.getDict().replaceKey("/Type", Handle::newName("/Metadata"));
  stream.getDict().replaceKey("/Subtype", Handle::newName("/XML"));
  Handle root = document.getRoot();
  root.replaceKey("/Metadata", stream);
  root.replaceKey("/Lang", Handle::newString(info.language.toStdString()));
  root.replaceKey("/ViewerPreferences", Handle::parse("<< /DisplayDocTitle true >>"));
}

// In the order in which they were first drawn with, since an object gets its number when it is first named.
std::vector<Handle> fontsOf(QPDF& document) {
  std::vector<Handle> fonts;
  for (Handle object : document.getAllObjects())
    if (object.isDictionaryOfType("/Font", "/Type0")) fonts.push_back(object);
  return fonts;
}

// A font, the one that it is made of, and its description carry one name.
void rename(Handle font) {
  Handle descendant = font.getKey("/DescendantFonts").getArrayItem(0);
  const Handle name = descendant.getKey("/FontDescriptor").getKey("/FontName");
  font.replaceKey("/BaseFont", name);
  descendant.replaceKey("/BaseFont", name);
}

void finishFonts(QPDF& document, const std::vector<TypedFace>& faces) {
  const std::vector<Handle> fonts = fontsOf(document);
  const bool areKnown = fonts.size() == faces.size();
  if (!areKnown) logLine(QStringLiteral("document: its fonts are not those that were drawn with"));
  for (size_t i = 0; i < fonts.size(); ++i) {
    rename(fonts[i]);
    Handle map = Handle(fonts[i]).getKey("/ToUnicode");
    writeSigns(map, typedSigns(readSigns(map), areKnown ? faces[i] : TypedFace()));
  }
}

QByteArray bytesOf(QPDF& document) {
  QPDFWriter writer(document);
  writer.setOutputMemory();
  writer.setDeterministicID(true);
  writer.write();
  const auto buffer = writer.getBufferSharedPointer();
  return {reinterpret_cast<const char*>(buffer->getBuffer()), static_cast<qsizetype>(buffer->getSize())};
}

QByteArray finished(const QByteArray& bytes, const DocumentInfo& info, const std::vector<TypedFace>& faces) {
  QPDF document;
  document.setSuppressWarnings(true);
  document.setAttemptRecovery(false);
  document.processMemoryFile("document", bytes.constData(), static_cast<size_t>(bytes.size()));
  replaceInfo(document, info);
  describe(document, info);
  finishFonts(document, faces);
  if (document.anyWarnings()) throw std::runtime_error(document.getWarnings().front().what());
  return bytesOf(document);
}

}  // namespace

QByteArray finishedPdf(const QByteArray& bytes, const DocumentInfo& info,
                       const std::vector<TypedFace>& faces) {
  try {
    return finished(bytes, info, faces);
  } catch (const std::exception& fault) {
    logLine(QStringLiteral("document not finished: ") + QString::fromLocal8Bit(fault.what()));
    return bytes;
  }
}

}  // namespace sanovia
