#pragma once

#include "measurement/documents/ReportDocument.h"

#include <functional>
#include <string>
#include <vector>

namespace CommonUI::Measurement
{

CStr NameOf(EReportBlock block);
/// That a block shows nothing, and why, without the full stop.
CStr EmptyBlockText(const CStr& names, const CStr& reason);
/// The title of a template, or else the name of the measurement.
CStr TitleOf(const SReportTemplateSettings& layout, const CStr& name);

/// @param make adds the elements; it is called whenever the file is written
SDocumentFile MakeDocumentFile(const SReportTemplateSettings& layout, const CStr& title,
                               std::function<void(CDocumentWriter&)> make);

/// What documents of blocks have in common.
class CDocumentBlocks
{
public:
    /// @param layout, document have to live as long as this
    CDocumentBlocks(const SReportTemplateSettings& layout, bool hasPictures, CDocumentWriter& document)
        : m_layout(layout)
        , m_hasPictures(hasPictures)
        , m_document(document)
    {
    }

protected:
    const SReportTemplateSettings& GetLayout() const { return m_layout; }
    bool HasPictures() const { return m_hasPictures; }

    void Add(const CDocumentElement& element);
    void AddSentence(EReportBlock block, const CStr& reason);
    /// Pictures that follow each other stand side by side.
    void AddPicture(const SPicture& picture);
    /// @param svg where it is empty, the reason becomes a sentence
    void AddChart(EReportBlock block, const CStr& caption, std::string svg, const CStr& reason);
    /// A table of more rows than a page has starts on a new one.
    void AddTable(const CStr& heading, const CGridBaseOutputCtrl::CCells& cells,
                  const std::vector<CStr>& notes);
    /// That rows of a table are left out.
    void AddShownRows(std::size_t shown, std::size_t count);
    void FlushPictures();

private:
    double GetCharacters() const;

    const SReportTemplateSettings& m_layout;
    bool m_hasPictures;
    CDocumentWriter& m_document;
    SPictures m_pictures{};
    bool m_isAtTop = true; // of the document
};

} // namespace CommonUI::Measurement
