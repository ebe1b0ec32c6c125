#pragma once

#include <chrono>
#include <cstddef>
#include <ostream>
#include <string>

namespace SurfaceReport
{

/// Tells how far a run on many files has come: on a terminal in one line, with the time that is left, which
/// is removed at the end; elsewhere in a line for each tenth of the files.
class CFileProgress
{
public:
    CFileProgress(std::size_t count, bool isTerminal, std::ostream& err)
        : m_count(count)
        , m_isTerminal(isTerminal)
        , m_err(err)
    {
    }
    ~CFileProgress() { Clear(); }
    CFileProgress(const CFileProgress&) = delete;
    CFileProgress& operator=(const CFileProgress&) = delete;

    void Show(std::size_t done, std::size_t failed)
    {
        std::string line = std::to_string(done) + " of " + std::to_string(m_count) + " files";
        if (failed != 0)
            line += ", " + std::to_string(failed) + " failed";
        if (m_isTerminal) {
            Clear();
            line += ", " + TimeLeft(done) + " left";
            m_width = line.size();
            m_err << line << std::flush;
        } else if (done * 10 / m_count != (done - 1) * 10 / m_count) {
            m_err << line << "\n" << std::flush;
        }
    }

private:
    void Clear()
    {
        if (m_width != 0)
            m_err << "\r" << std::string(m_width, ' ') << "\r" << std::flush;
    }
    std::string TimeLeft(std::size_t done) const
    {
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - m_start;
        const auto left = static_cast<long long>(passed.count() / static_cast<double>(done) *
                                                 static_cast<double>(m_count - done));
        const std::string seconds = std::to_string(left % 60);
        return std::to_string(left / 60) + (seconds.size() < 2 ? ":0" : ":") + seconds;
    }

    std::size_t m_count;
    bool m_isTerminal;
    std::ostream& m_err;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    std::size_t m_width = 0;
};

} // namespace SurfaceReport
