#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "FeedSection.h"

#include <span>

namespace CommonUI
{

class CStartPaneView;

/// The page of a start pane, as CStartPaneView::ShowPage takes it.
/// @param view writes dates
COMMONUI_API CStr MakeStartPage(std::span<const SFeedSection> sections, const CStartPaneView& view);

/// The line below the page.
COMMONUI_API CStr MakeStartStatus(std::span<const SFeedSection> sections, const CStartPaneView& view);

} // namespace CommonUI
