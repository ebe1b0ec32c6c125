#pragma once

#include "../../export/Export.h"
#include "../../platform/Clipboard.h"

namespace CommonUI
{

/// The clipboard of the desktop: `text/html` and `text/plain` together. On Windows Qt gives the HTML the
/// header that is usual there.
class COMMONUIQT_API CQtClipboard : public CClipboard
{
public:
    ~CQtClipboard() override;

    bool Put(const CStr& html, const CStr& text) override;
};

} // namespace CommonUI
