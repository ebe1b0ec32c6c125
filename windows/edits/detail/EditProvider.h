#pragma once

#include "windows/detail/Api.h"

#include <memory>

namespace CommonUI
{

class CWinEditField;

/// What screen readers know of the number in an edit field, by the system's UI Automation: its value, range
/// and step, in the unit of the field. All else, the text above all, is what the system provides for its
/// fields. They may keep what they have been given when the field is gone, and get nothing from it then.
/// Without UI Automation nothing happens.
class CEditAutomation
{
public:
    /// @param field which owns the object
    explicit CEditAutomation(CWinEditField& field);
    ~CEditAutomation() { End(); }
    CEditAutomation(const CEditAutomation&) = delete;
    CEditAutomation& operator=(const CEditAutomation&) = delete;

    /// The field goes.
    void End();
    /// Answers WM_GETOBJECT. @return 0 where something else was asked for, or the field has no number
    LRESULT Answer(WPARAM wide, LPARAM longer);

    /// What providers keep.
    struct SSource {
        CWinEditField* field; // null when it is gone
    };

private:
    std::shared_ptr<SSource> m_source;
    bool m_isAsked = false; // by somebody, and the system keeps what was given
};

} // namespace CommonUI
