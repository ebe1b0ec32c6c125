#pragma once

#include "tests/dialogs/SettingsMenuTesting.h"

#include <functional>

class QDialog;

namespace CommonUI
{

/// Every dialog window of the library.
class CAllDialogs : public CSettingsMenuServices
{
protected:
    using FLook = std::function<void(QDialog& window)>;

    CAllDialogs();
    ~CAllDialogs() override;

    /// Opens one after the other, filled, and looks at each when it is active.
    void ForEach(const FLook& look);
    /// The help topic of the one that is open; 0 for one without.
    unsigned int GetTopic() const noexcept { return m_topic; }

private:
    void ShowSelections(const FLook& look);
    void ShowOptions(const FLook& look);
    void ShowFrameworkDialogs(const FLook& look);
    void ShowProgress(const FLook& look);
    void ShowSettings(const FLook& look);
    void ShowResults(const FLook& look);
    void ShowMessageBox(const FLook& look);
    void Look(const std::string& name, QDialog& window, unsigned int topic, const FLook& look);

    unsigned int m_topic = 0;
};

} // namespace CommonUI
