#pragma once

#include <ostream>
#include <string>

namespace CommandLine
{

/// Shows how far a long work has come, on one line that is removed at the end.
class CProgressLine
{
public:
    /// @param work such as "reading"
    /// @param isShown whether the work is long enough to be worth a line
    CProgressLine(const char* work, bool isShown, std::ostream& err)
        : m_work(work)
        , m_isShown(isShown)
        , m_err(err)
    {
    }
    ~CProgressLine()
    {
        if (m_percent >= 0)
            m_err << "\r" << std::string(m_work.size() + 8, ' ') << "\r" << std::flush;
    }
    CProgressLine(const CProgressLine&) = delete;
    CProgressLine& operator=(const CProgressLine&) = delete;

    /// @param fraction of the work that is done, 0 to 1
    void Show(double fraction)
    {
        const int percent = static_cast<int>(fraction * 100);
        if (!m_isShown || percent == m_percent)
            return;
        m_percent = percent;
        m_err << "\r" << m_work << ": " << percent << " %" << std::flush;
    }

private:
    std::string m_work;
    bool m_isShown;
    std::ostream& m_err;
    int m_percent = -1;
};

} // namespace CommandLine
