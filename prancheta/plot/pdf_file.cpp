// SPDX-License-Identifier: MIT
// Finished PDF files.
#include "prancheta/plot/pdf_file.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>
#include <vector>

#include "prancheta/base/text.h"
#include "prancheta/plot/marks.h"

namespace prancheta {
namespace {

using Object = QPDFObjectHandle;

std::string keyOf(std::size_t layer) { return "/Camada" + std::to_string(layer); }

/// Puts the beginning and the end of marked content in the place of marks. Everything else passes
/// as it is. O(bytes).
class MarkFilter : public Object::TokenFilter {
public:
    explicit MarkFilter(std::size_t layers) : m_layers(layers) {}

    void handleToken(const QPDFTokenizer::Token& token) override {
        m_operation += token.getRawValue();
        const auto type = token.getType();
        if (type == QPDFTokenizer::tt_integer || type == QPDFTokenizer::tt_real)
            m_numbers.push_back(std::atof(token.getValue().c_str()));
        else if (type == QPDFTokenizer::tt_word)
            endOperation(token.getValue());
    }
    void handleEOF() override { write(m_operation); }

private:
    void endOperation(const std::string& word) {
        const bool pair = m_numbers.size() == 2;
        if (word == "m" && pair && m_numbers[0] == kMark) {
            m_mark = m_numbers;
        } else if (word == "l" && pair && !m_mark.empty()) {
            m_mark.insert(m_mark.end(), m_numbers.begin(), m_numbers.end());
        } else if (word == "S" && !m_mark.empty()) {
            replaceMark();
        } else {
            write(m_operation);
        }
        m_operation.clear();
        m_numbers.clear();
    }

    void replaceMark() {
        const auto kind = static_cast<Mark>(static_cast<int>(m_mark[1]));
        const auto layer = static_cast<std::size_t>(m_mark.size() > 2 ? m_mark[2] : 0.0);
        if (kind == Mark::LayerBegin && layer < m_layers) write("\n/OC " + keyOf(layer) + " BDC");
        if (kind == Mark::LayerEnd) write("\nEMC");
        m_mark.clear();
    }

    std::size_t m_layers;
    std::string m_operation;  ///< up to its operator, blanks before it included
    std::vector<double> m_numbers;
    std::vector<double> m_mark;  ///< its points; empty: in none
};

/// Optional content, one group a layer, in the order of names.
Object addLayers(QPDF& file, std::span<const std::wstring> layers) {
    std::vector<std::size_t> order(layers.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return foldCase(layers[a]) < foldCase(layers[b]);
    });
    Object all = Object::newArray();
    Object properties = Object::newDictionary();
    for (const std::size_t layer : order) {
        Object group = Object::newDictionary();
        group.replaceKey("/Type", Object::newName("/OCG"));
        group.replaceKey("/Name", Object::newUnicodeString(toUtf8(layers[layer])));
        group = file.makeIndirectObject(group);
        all.appendItem(group);
        properties.replaceKey(keyOf(layer), group);
    }
    Object usual = Object::newDictionary();
    usual.replaceKey("/Name", Object::newUnicodeString("Camadas"));
    usual.replaceKey("/Order", all);
    usual.replaceKey("/ON", all);
    usual.replaceKey("/OFF", Object::newArray());
    Object content = Object::newDictionary();
    content.replaceKey("/OCGs", all);
    content.replaceKey("/D", usual);
    file.getRoot().replaceKey("/OCProperties", content);
    return file.makeIndirectObject(properties);
}

void addBookmarks(QPDF& file, std::span<const PdfPage> pages) {
    const std::vector<QPDFPageObjectHelper> sheets = QPDFPageDocumentHelper(file).getAllPages();
    Object outlines = file.makeIndirectObject(Object::newDictionary());
    outlines.replaceKey("/Type", Object::newName("/Outlines"));
    outlines.replaceKey("/Count", Object::newInteger(static_cast<long long>(pages.size())));
    Object former;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        Object item = file.makeIndirectObject(Object::newDictionary());
        item.replaceKey("/Title", Object::newUnicodeString(pages[i].bookmark));
        item.replaceKey("/Parent", outlines);
        item.replaceKey("/Dest",
                        Object::newArray({sheets[i].getObjectHandle(), Object::newName("/Fit")}));
        if (former.isInitialized()) {
            item.replaceKey("/Prev", former);
            former.replaceKey("/Next", item);
        } else {
            outlines.replaceKey("/First", item);
        }
        former = item;
    }
    outlines.replaceKey("/Last", former);
    file.getRoot().replaceKey("/Outlines", outlines);
    if (pages.size() > 1) file.getRoot().replaceKey("/PageMode", Object::newName("/UseOutlines"));
}

/// Hundredths of a thousandth of a point are beyond any printer, and short to write.
constexpr int kDecimals = 4;

void finish(QPDF& file, std::span<const PdfPage> pages, std::span<const std::wstring> layers) {
    std::vector<QPDFPageObjectHelper> sheets = QPDFPageDocumentHelper(file).getAllPages();
    if (sheets.size() != pages.size()) throw std::runtime_error("pages");
    const Object properties = layers.empty() ? Object() : addLayers(file, layers);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        sheets[i].getObjectHandle().replaceKey(
            "/MediaBox", Object::newArray({Object::newInteger(0), Object::newInteger(0),
                                           Object::newReal(pages[i].size.width(), kDecimals),
                                           Object::newReal(pages[i].size.height(), kDecimals)}));
        if (layers.empty()) continue;
        sheets[i].getAttribute("/Resources", true).replaceKey("/Properties", properties);
        sheets[i].addContentTokenFilter(std::make_shared<MarkFilter>(layers.size()));
    }
    addBookmarks(file, pages);
    if (Object about = file.getTrailer().getKey("/Info"); about.isDictionary())
        about.removeKey("/CreationDate");
}

}  // namespace

Result<std::string> finishPdf(const std::string& pdf, std::span<const PdfPage> pages,
                              std::span<const std::wstring> layers) {
    try {
        QPDF file;
        file.setSuppressWarnings(true);
        file.processMemoryFile("pdf", pdf.data(), pdf.size());
        finish(file, pages, layers);
        QPDFWriter writer(file);
        writer.setOutputMemory();
        writer.setDeterministicID(true);
        if (!layers.empty()) writer.setMinimumPDFVersion("1.5");
        writer.write();
        const std::shared_ptr<Buffer> bytes = writer.getBufferSharedPointer();
        return std::string(reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize());
    } catch (const std::exception& error) {
        return Error{std::string("não foi possível terminar o PDF (") + error.what() + ")"};
    }
}

}  // namespace prancheta
