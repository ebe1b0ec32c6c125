#pragma once

#include "../../export/Export.h"
#include "../../output/results/GridBaseOutputCtrl.h"
#include "../charts/ReportPictures.h"

#include <variant>
#include <vector>

namespace CommonUI::Measurement
{

/// The paper that a document is laid out for: A4.
struct SDocumentPage {
    CStr title{}; ///< of the document, for lists of files and windows
    bool isLandscape = false;
    double margin = 20; ///< mm
    int columns = 1;    ///< in which pictures stand side by side
};

struct SHeading {
    CStr text{};
    bool isTitle = false; ///< that of the document
};

struct SParagraph {
    CStr text{};
};

/// The cells of a table, with their headers on top.
struct SDocumentTable {
    CGridBaseOutputCtrl::CCells cells{};
    std::vector<CStr> notes{}; ///< lines below it, see CFootnotes
};

/// Labels and texts of what was measured.
struct SFacts {
    std::vector<std::pair<CStr, CStr>> rows{};
};

/// Pictures that follow each other, in as many columns as the page has.
struct SPictures {
    std::vector<SPicture> pictures{};
};

/// An empty frame for the reader's words.
struct SCommentField {
    CStr label{};
};

/// What follows starts on a new page.
struct SPageBreak {
};

/// A piece of a document. Texts may hold any code units: each format writes them as it can.
using CDocumentElement =
    std::variant<SHeading, SParagraph, SFacts, SDocumentTable, SPictures, SCommentField, SPageBreak>;

/// Makes a file of a document, element by element from top to bottom.
class COMMONUIMEASUREMENT_API CDocumentWriter
{
public:
    virtual ~CDocumentWriter();

    virtual void Add(const CDocumentElement& element) = 0;
    /// To be called once, at the end.
    virtual void Finish() = 0;

protected:
    CDocumentWriter() = default;
    CDocumentWriter(const CDocumentWriter&) = default;
    CDocumentWriter& operator=(const CDocumentWriter&) = default;
};

} // namespace CommonUI::Measurement
