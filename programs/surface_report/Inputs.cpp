#include "programs/surface_report/Inputs.h"

#include "common/file/FileBytes.h"
#include "common/PathText.h"
#include "common/Str.h"
#include "formats/SurfaceFiles.h"
#include "programs/command_line/CommandLine.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <string_view>

namespace SurfaceReport
{

namespace fs = std::filesystem;
using CommandLine::EUsage;
using CommonUI::CStr;

namespace
{

bool IsList(const fs::path& input)
{
    return input.native().starts_with('@');
}

bool IsPattern(const fs::path& input)
{
    std::error_code error;
    return input.filename().string().find_first_of("*?") != std::string::npos && !fs::exists(input, error);
}

// A file, or what cannot be looked at, such as a link that leads nowhere.
bool IsFileOrUnknown(const fs::directory_entry& entry)
{
    std::error_code error;
    return entry.is_regular_file(error) || error;
}

// With U+FFFD where there are bytes that are no characters.
CStr TextOf(const fs::path& path)
{
    CStr text;
    CommonUI::ToText(path, text);
    return text;
}

// Where the report of an input lies: under a name that leaves room for what reports append to it.
fs::path MakePlace(fs::path input)
{
    constexpr std::size_t c_longest = 200;
    const std::u8string name = input.filename().u8string();
    if (name.size() <= c_longest)
        return input;
    std::size_t length = c_longest;
    while (length > 0 && (name[length] & 0xC0) == 0x80) // not within a character
        --length;
    return input.replace_filename(name.substr(0, length));
}

// Whether a name fits a pattern, in which * stands for any characters and ? for one.
bool Fits(std::u16string_view name, std::u16string_view pattern)
{
    std::size_t star = pattern.npos; // the last one met, and where in the name it ends for now
    std::size_t end = 0;
    std::size_t n = 0;
    std::size_t p = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            star = p++;
            end = n;
        } else if (p < pattern.size() && (pattern[p] == u'?' || pattern[p] == name[n])) {
            ++p;
            ++n;
        } else if (star != pattern.npos) {
            p = star + 1;
            n = ++end;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(u'*', p) == pattern.npos;
}

class CFinder
{
public:
    explicit CFinder(const fs::path& output)
        : m_output(Canonical(output))
    {
    }

    void Add(const fs::path& input)
    {
        if (IsList(input))
            AddList(input.string().substr(1));
        else
            AddEntry(input);
    }
    std::vector<SInputFile> Take() { return std::move(m_files); }

private:
    void AddEntry(const fs::path& input)
    {
        std::error_code error;
        if (IsPattern(input))
            AddMatching(input);
        else if (fs::is_directory(input, error))
            AddFolder(input);
        else
            AddFile(input, input.filename());
    }
    void AddList(const std::string& list)
    {
        std::string bytes;
        CStr reason;
        if (!CommonUI::ReadFileBytes(CommandLine::ToPath(list).u16string(), bytes, bytes.max_size(), reason))
            throw EUsage("@" + list + ": " + reason.ToUtf8());
        constexpr std::string_view c_byteOrderMark = "\xEF\xBB\xBF";
        std::istringstream lines(bytes.substr(bytes.starts_with(c_byteOrderMark) ? 3 : 0));
        for (std::string line; std::getline(lines, line);) {
            if (line.ends_with('\r'))
                line.pop_back();
            if (!line.empty()) // not by way of UTF-16, in which names that are no UTF-8 get lost
                AddEntry(CommandLine::ToPath(line));
        }
    }
    void AddMatching(const fs::path& pattern)
    {
        const fs::path folder = pattern.has_parent_path() ? pattern.parent_path() : fs::path(".");
        std::vector<fs::path> found;
        std::error_code error;
        for (const auto& entry : fs::directory_iterator(folder, error)) {
            const fs::path name = entry.path().filename();
            if (IsFileOrUnknown(entry) && Fits(TextOf(name), TextOf(pattern.filename())))
                found.push_back(pattern.parent_path() / name);
        }
        if (found.empty())
            throw EUsage("\"" + pattern.string() + "\" matches no file");
        std::ranges::sort(found);
        for (const fs::path& file : found)
            AddFile(file, file.filename());
    }
    void AddFolder(const fs::path& folder)
    {
        if (Canonical(folder) == m_output)
            throw EUsage("\"" + folder.string() + "\" is the folder for the reports, and an input, too");
        const auto found = CommonUI::Formats::FindSurfaceFiles(
            folder, [this](const fs::path& inside) { return Canonical(inside) == m_output; });
        const fs::path name = Canonical(folder).filename();
        for (const fs::path& file : found)
            AddFile(file, name / file.lexically_relative(folder));
    }
    void AddFile(const fs::path& file, const fs::path& report)
    {
        if (!m_known.insert(Canonical(file)).second)
            return;
        const fs::path place = MakePlace(report);
        fs::path name = place;
        for (int number = 2; !m_reports.insert(name).second; ++number)
            (name = place) += "-" + std::to_string(number);
        m_files.push_back({file, name});
    }

    fs::path m_output;
    std::set<fs::path> m_known{};
    std::set<fs::path> m_reports{"report", "report.sheet"}; // those of the table come first
    std::vector<SInputFile> m_files{};
};

} // namespace

fs::path Canonical(const fs::path& path)
{
    std::error_code error;
    fs::path canonical = fs::weakly_canonical(path, error);
    return error ? path.lexically_normal() : canonical;
}

bool IsOneFile(const std::vector<fs::path>& inputs)
{
    if (inputs.size() != 1)
        return inputs.empty();
    std::error_code error;
    return !IsList(inputs.front()) && !IsPattern(inputs.front()) && !fs::is_directory(inputs.front(), error);
}

std::vector<SInputFile> FindInputs(const std::vector<fs::path>& inputs, const fs::path& output)
{
    CFinder finder(output);
    for (const fs::path& input : inputs)
        finder.Add(input);
    return finder.Take();
}

} // namespace SurfaceReport
