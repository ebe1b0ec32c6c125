#include "output/grid/GridView.h"

#include "common/NumberText.h"
#include "output/grid/GridPane.h"
#include "platform/MessageBoxService.h"

#include <algorithm>
#include <cmath>

namespace CommonUI
{

namespace
{

bool FitsMask(char16_t mask, char16_t unit)
{
    switch (mask) {
    case u'd':
        return unit >= u'0' && unit <= u'9';
    case u'a':
        return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
    case u'*':
        return true;
    default:
        return unit == mask;
    }
}

} // namespace

bool SGridEditRules::Accepts(std::u16string_view text) const
{
    const auto isValid = [this](char16_t unit) { return validCharacters.Find(unit) != CStr::npos; };
    if (!validCharacters.IsEmpty() && !std::ranges::all_of(text, isValid))
        return false;
    return mask.IsEmpty() || std::equal(mask.begin(), mask.end(), text.begin(), text.end(), FitsMask);
}

CStr StepGridEdit(const SGridEdit& edit, const CStr& text, int steps)
{
    double value = 0;
    if (!ParseDouble(text, value) || !std::isfinite(value))
        value = edit.minimum;
    return ShortestText(
        std::clamp(value + steps, static_cast<double>(edit.minimum), static_cast<double>(edit.maximum)));
}

void EndGridEdit(EGridEditEnd end, const CStr& text, const std::function<CGridPane*()>& getGrid)
{
    CGridPane* grid = getGrid();
    if (!grid)
        return;
    if (end == EGridEditEnd::Cancelled) {
        grid->CancelEdit();
        return;
    }
    if (!grid->EndEdit(text)) {
        GetMessageBoxService().Beep(MessageBoxStyle::c_warning);
        return;
    }
    grid = end == EGridEditEnd::Taken ? nullptr : getGrid();
    if (grid)
        grid->EditNext(end == EGridEditEnd::Previous);
}

CGridView::~CGridView() = default;

} // namespace CommonUI
