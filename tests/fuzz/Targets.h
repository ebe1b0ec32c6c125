#pragma once

#include <ostream>
#include <span>
#include <stdexcept>
#include <string_view>

namespace Fuzz
{

/// A property did not hold.
class EBroken : public std::logic_error
{
public:
    using std::logic_error::logic_error;
};

/// What is done with any bytes, and holds for all of them.
struct STarget {
    std::string_view name;
    /// @throws EBroken, and whatever the code under test must not throw
    void (*run)(std::string_view bytes);
    /// How many inputs the tests try: those of slow ones are fewer.
    int tries = 2000;

    friend std::ostream& operator<<(std::ostream& out, const STarget& target) { return out << target.name; }
};

/// All of them, in the order of their names.
std::span<const STarget> GetTargets();

/// @param what that should be true
/// @throws EBroken
inline void Expect(bool holds, const char* what)
{
    if (!holds)
        throw EBroken(what);
}

// Each by the name of what it reads.
void RunAnalysisPreferences(std::string_view bytes);
void RunAnimation(std::string_view bytes);
void RunBatchSequence(std::string_view bytes);
void RunColorScale(std::string_view bytes);
void RunCommandLine(std::string_view bytes);
void RunFilter(std::string_view bytes);
void RunGrainThreshold(std::string_view bytes);
void RunInifile(std::string_view bytes);
void RunIniMerge(std::string_view bytes);
void RunNumberFormat(std::string_view bytes);
void RunNumberText(std::string_view bytes);
void RunParameterList(std::string_view bytes);
void RunPlaneCorrection(std::string_view bytes);
void RunPreferenceChange(std::string_view bytes);
void RunPreferences(std::string_view bytes);
void RunReportTemplate(std::string_view bytes);
void RunRoughness(std::string_view bytes);
void RunSurface(std::string_view bytes);
void RunTextFormat(std::string_view bytes);
void RunTokens(std::string_view bytes);
void RunUserSpecification(std::string_view bytes);
void RunX3pDescription(std::string_view bytes);
void RunXml(std::string_view bytes);

} // namespace Fuzz
