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
    CStr title{};             ///< of the document, for lists of files and windows
    bool isLandscape = false; ///< whether the page is wider than high
    double margin = 20;       ///< mm
    int columns = 1;          ///< in which pictures stand side by side
};

/// A line above what follows.
struct SHeading {
    CStr text{};          ///< without markup
    bool isTitle = false; ///< that of the document
};

/// A piece of running text.
struct SParagraph {
    CStr text{}; ///< without markup
};

/// The cells of a table, with their headers on top.
struct SDocumentTable {
    CGridBaseOutputCtrl::CCells cells{}; ///< row by row
    std::vector<CStr> notes{};           ///< lines below it, see CFootnotes
};

/// Labels and texts of what was measured.
struct SFacts {
    std::vector<std::pair<CStr, CStr>> rows{}; ///< label and text each
};

/// Pictures that follow each other, in as many columns as the page has.
struct SPictures {
    std::vector<SPicture> pictures{}; ///< in the order of reading
};

/// An empty frame for the reader's words.
struct SCommentField {
    CStr label{}; ///< above the frame
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

    /// Writes an element behind those before it.
    virtual void Add(const CDocumentElement& element) = 0;
    /// To be called once, at the end.
    virtual void Finish() = 0;

protected:
    CDocumentWriter() = default;
    CDocumentWriter(const CDocumentWriter&) = default;
    CDocumentWriter& operator=(const CDocumentWriter&) = default;
};

} // namespace CommonUI::Measurement
