#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "GridBaseOutputCtrl.h"

#include <cstddef>
#include <memory>

namespace CommonUI
{

/// Makes the text of CGridBaseOutputCtrl::GenerateResultsHTMLTable in parts, for tables whose cells are not
/// held in memory all at once.
class COMMONUI_API CResultsHtml
{
public:
    /// @param rowCount of the whole table, headers included
    explicit CResultsHtml(std::size_t rowCount);
    ~CResultsHtml();
    CResultsHtml(const CResultsHtml&) = delete;
    CResultsHtml& operator=(const CResultsHtml&) = delete;

    /// The text of the next rows: with the table's start in front of the first ones, and its end behind the
    /// last.
    /// @param rows the first ones have all headers and sub-headers on top of the table
    CStr MakePart(const CGridBaseOutputCtrl::CCells& rows);

private:
    struct SState;

    std::unique_ptr<SState> m_state;
};

} // namespace CommonUI
