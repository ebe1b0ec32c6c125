#include "dialogs/messages/RememberedMessageBox.h"

#include "common/StringTable.h"
#include "dialogs/detail/FrameworkTexts.h"

#include <optional>

namespace CommonUI
{

namespace
{

unsigned int GetButtons(const SMessageBox& box)
{
    return box.style & MessageBoxStyle::c_buttonMask;
}

// What the box would answer; nothing where it has to be shown.
std::optional<EMessageBoxAnswer> FindAnswer(const CStr& key, const SMessageBox& box,
                                            const CPreferencesData& preferences)
{
    bool isYes = false;
    if (key.IsEmpty() || !preferences.GetDontShowAgain(key, isYes))
        return {};
    if (GetButtons(box) == MessageBoxStyle::c_yesNo)
        return isYes ? EMessageBoxAnswer::Yes : EMessageBoxAnswer::No;
    const bool isCancel = !isYes && GetButtons(box) == MessageBoxStyle::c_okCancel;
    return isCancel ? std::nullopt : std::optional(EMessageBoxAnswer::Ok);
}

} // namespace

EMessageBoxAnswer ShowRememberedMessageBox(const CStr& key, const SMessageBox& box,
                                           CPreferencesData& preferences)
{
    if (key.IsEmpty())
        return GetMessageBoxService().Show(box);
    if (const auto answer = FindAnswer(key, box, preferences))
        return *answer;
    const bool isQuestion = GetButtons(box) != MessageBoxStyle::c_ok;
    bool isChecked = false;
    const EMessageBoxAnswer answer = GetMessageBoxService().ShowWithCheck(
        box, GetString(isQuestion ? c_dontAskAgain : c_dontShowAgain), isChecked);
    if (isChecked && answer != EMessageBoxAnswer::Cancel)
        preferences.RegisterDontShowAgain(key, answer != EMessageBoxAnswer::No);
    return answer;
}

} // namespace CommonUI
