#pragma once

#include "../export/Export.h"

namespace CommonUI
{

/// Watches the driver's stacks of attributes and of model-view and projection matrices over a scope: what was
/// pushed in it without a CGLStack and not popped is reported and popped at its end, and what was popped too
/// often is reported. Make it before the stacks of the scope.
///
/// The report is one line of the diagnostics, category "3DStack", level Error. Runs on the thread that owns
/// the current rendering context, which stays the same; without a context nothing is reported.
class COMMONUI_API CGLStackWatch
{
public:
    CGLStackWatch() noexcept;
    /// Also where the sink of the diagnostics throws; that exception ends here.
    ~CGLStackWatch();
    CGLStackWatch(const CGLStackWatch&) = delete;
    CGLStackWatch& operator=(const CGLStackWatch&) = delete;

private:
    struct SDepths {
        int attributes = 0;
        int modelView = 0;
        int projection = 0;

        bool operator==(const SDepths& other) const = default;
    };

    static SDepths Read() noexcept;
    void Report(const SDepths& now) const;
    void Restore() const noexcept;

    SDepths m_before;
};

} // namespace CommonUI
