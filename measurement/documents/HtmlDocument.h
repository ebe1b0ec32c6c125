#pragma once

#include "../ReportTables.h"
#include "Document.h"

namespace CommonUI::Measurement
{

/// Writes a document as a page of HTML, UTF-8, that needs nothing beside it and suits a dark screen and a
/// printer. Each element is written when it is added.
class COMMONUIMEASUREMENT_API CHtmlDocument : public CDocumentWriter
{
public:
    /// @param write must live as long as the object
    CHtmlDocument(const SDocumentPage& page, const FWriteText& write);

    void Add(const CDocumentElement& element) override;
    void Finish() override;

private:
    void AddPart(const SHeading& heading);
    void AddPart(const SParagraph& paragraph);
    void AddPart(const SFacts& facts);
    void AddPart(const SDocumentTable& table);
    void AddPart(const SPictures& pictures);
    void AddPart(const SCommentField& field);
    void AddPart(const SPageBreak& pageBreak);

    const FWriteText& m_write;
    bool m_breaksPage = false; // before the next element
};

} // namespace CommonUI::Measurement
