#include "common/Diagnostics.h"

#include "common/ControlCharacters.h"

#include <iostream>
#include <mutex>
#include <set>
#include <utility>

namespace CommonUI
{

namespace
{

thread_local int s_openScopes = 0;

// A line quotes files and names of others, which must not command the terminal.
std::string ToTerminal(std::u16string_view text)
{
    return ToUtf8(ReplaceControls(text, u'?'));
}

void WriteToStandardError(const SDiagnosticLine& line)
{
    std::string text = line.category.empty() ? std::string() : ToTerminal(line.category) + ": ";
    text.append(static_cast<std::size_t>(line.indentation) * 2, ' ');
    text += ToTerminal(line.text.substr(0, line.text.size() - line.text.ends_with(u'\n'))) + '\n';
    static const std::ios_base::Init init; // constructors of static objects may write, too
    std::cerr << text;
}

} // namespace

struct CDiagnostics::SState {
    std::mutex categoryMutex;
    std::set<CStr, std::less<>> enabled;
    std::mutex sinkMutex; // not that of the categories: a sink may ask for them
    FSink sink = WriteToStandardError;
};

constinit std::atomic<std::size_t> CDiagnostics::s_enabledCount{0};

CDiagnostics::CDiagnostics()
    : m_state(std::make_unique<SState>())
{
}

CDiagnostics::~CDiagnostics()
{
    s_enabledCount -= m_state->enabled.size();
}

bool CDiagnostics::IsListed(std::u16string_view category) const
{
    const std::lock_guard lock(m_state->categoryMutex);
    return m_state->enabled.contains(category);
}

void CDiagnostics::SetEnabled(std::u16string_view category, bool enabled)
{
    const std::lock_guard lock(m_state->categoryMutex);
    const auto found = m_state->enabled.find(category);
    const bool isListed = found != m_state->enabled.end();
    if (enabled && !isListed) {
        m_state->enabled.emplace(category);
        ++s_enabledCount;
    } else if (!enabled && isListed) {
        m_state->enabled.erase(found);
        --s_enabledCount;
    }
}

void CDiagnostics::Write(std::u16string_view category, EDiagnosticLevel level, std::u16string_view text)
{
    if (level < EDiagnosticLevel::Warning && !IsEnabled(category))
        return;
    const std::lock_guard lock(m_state->sinkMutex);
    m_state->sink({category, level, s_openScopes, text});
}

CDiagnostics::FSink CDiagnostics::SetSink(FSink sink)
{
    const std::lock_guard lock(m_state->sinkMutex);
    return std::exchange(m_state->sink, sink ? std::move(sink) : FSink(WriteToStandardError));
}

CDiagnostics::CScope::CScope() noexcept
{
    ++s_openScopes;
}

CDiagnostics::CScope::~CScope()
{
    --s_openScopes;
}

CDiagnostics& GetDiagnostics()
{
    // Never destroyed: destructors of static objects may still write.
    static CDiagnostics& diagnostics = *new CDiagnostics;
    return diagnostics;
}

} // namespace CommonUI
