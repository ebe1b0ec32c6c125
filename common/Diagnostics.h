#pragma once

#include "../export/Export.h"
#include "Str.h"

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>

namespace CommonUI
{

/// How grave a line of the diagnostics channel is.
enum class EDiagnosticLevel {
    Trace = 0,   ///< a step of ordinary work, for those who follow it
    Info = 1,    ///< something worth knowing
    Warning = 2, ///< input or environment that was wrong and has been dealt with
    Error = 3    ///< something asked for that could not be done
};

/// One line of the diagnostics channel as the sink receives it.
struct SDiagnosticLine {
    std::u16string_view category; ///< such as u"3DStack" or u"Inifile", or empty; valid during the call only
    EDiagnosticLevel level;       ///< decides whether the line is passed on
    int indentation;              ///< how many scopes are open in the writing thread
    std::u16string_view text;     ///< valid during the call only
};

/// The trace channel of the library: lines under a category, at a level, indented by scope.
///
/// Lines of level Warning and Error are always passed on; lines below reach the sink only when their category
/// is enabled. The empty category is always enabled: it is for reports that somebody has asked for. Without a
/// sink of the application, what is passed on goes to the standard error stream, a line each, with "?" in
/// place of control characters. Any thread may write; the sink is called by one thread at a time.
class COMMONDLL_API CDiagnostics
{
public:
    /// Takes a line; called by the thread that writes it.
    using FSink = std::function<void(const SDiagnosticLine&)>;

    CDiagnostics();
    ~CDiagnostics();
    CDiagnostics(const CDiagnostics&) = delete;
    CDiagnostics& operator=(const CDiagnostics&) = delete;

    /// Whether a Trace or Info line of the category would be passed on: ask before building a costly text.
    bool IsEnabled(std::u16string_view category) const
    {
        return category.empty() || (IsAnyEnabled() && IsListed(category));
    }
    /// Whether any category of any channel is enabled, at the cost of one look at a variable: where even the
    /// call of GetDiagnostics counts, ask this first.
    static bool IsAnyEnabled() noexcept { return s_enabledCount.load(std::memory_order_relaxed) != 0; }
    /// Means nothing for the empty category.
    void SetEnabled(std::u16string_view category, bool enabled);

    /// Passes a line on, unless its level is below Warning and its category is not enabled.
    void Write(std::u16string_view category, EDiagnosticLevel level, std::u16string_view text);

    /// Sets where lines go and returns the sink before it; an empty function restores the standard error
    /// stream. The sink may ask for categories and enable them, but must neither write to the channel nor
    /// set its sink.
    FSink SetSink(FSink sink);

    /// Indents the lines that this thread writes while the object lives.
    class COMMONDLL_API CScope
    {
    public:
        CScope() noexcept;
        ~CScope();
        CScope(const CScope&) = delete;
        CScope& operator=(const CScope&) = delete;
    };

private:
    struct SState;

    bool IsListed(std::u16string_view category) const;

    static std::atomic<std::size_t> s_enabledCount; // of the categories of all channels

    std::unique_ptr<SState> m_state;
};

/// The one channel of the process. It lives until the process ends, longer than any static object.
COMMONDLL_API CDiagnostics& GetDiagnostics();

} // namespace CommonUI
