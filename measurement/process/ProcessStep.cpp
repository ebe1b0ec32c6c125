#include "measurement/process/ProcessStep.h"

#include "measurement/detail/ReadSet.h"
#include "measurement/NamedSet.h"
#include "settings/SetReference.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <string>

namespace CommonUI::Measurement
{

namespace
{

using enum EStepNumber;

constexpr double c_largestWindow = 255;
constexpr double c_largestDeviation = 40;
constexpr double c_largestThreshold = 1000;
constexpr double c_widestStreak = 127;
constexpr double c_smallest = 1e-9; // of what has to be above 0

constexpr const char16_t* c_numberNames[] = {
    u"order",     u"columns",       u"rows",         u"standard deviation",
    u"threshold", u"maximum width", u"cut-off in m", u"cut-off as a share"};

int* FindInteger(SPlaneCorrectionSettings& settings, EStepNumber number)
{
    return number == Order ? &settings.order : nullptr;
}

int* FindInteger(SFilterSettings& settings, EStepNumber number)
{
    switch (number) {
    case Columns:
        return &settings.columns;
    case Rows:
        return &settings.rows;
    case MaximumWidth:
        return &settings.maximumWidth;
    default:
        return nullptr;
    }
}

double* FindReal(SFilterSettings& settings, EStepNumber number)
{
    switch (number) {
    case StandardDeviation:
        return &settings.standardDeviation;
    case Threshold:
        return &settings.threshold;
    case Cutoff:
        return &settings.cutoff.length;
    case CutoffShare:
        return &settings.cutoff.fraction;
    default:
        return nullptr;
    }
}

void Store(SPlaneCorrectionSettings& settings, EStepNumber number, double value)
{
    *FindInteger(settings, number) = static_cast<int>(value);
}

void Store(SFilterSettings& settings, EStepNumber number, double value)
{
    if (int* const integer = FindInteger(settings, number))
        *integer = static_cast<int>(value);
    else
        *FindReal(settings, number) = value;
}

void Store(SInterpolation&, EStepNumber, double)
{
}
void Store(SNoChange&, EStepNumber, double)
{
}

std::vector<SStepNumber> NumbersOf(const SPlaneCorrectionSettings& settings)
{
    const auto order = static_cast<double>(settings.order);
    if (settings.method == Analysis::ECorrectionMethod::Polynomial)
        return {{Order, order, 1, 9, 1}};
    if (settings.method == Analysis::ECorrectionMethod::StepWizard)
        return {{Order, order, 1, 2, 1}};
    return {};
}

void AddWindow(const SFilterSettings& settings, std::vector<SStepNumber>& numbers)
{
    numbers.push_back({Columns, static_cast<double>(settings.columns), 1, c_largestWindow, 2});
    if (settings.application == EFilterApplication::Image)
        numbers.push_back({Rows, static_cast<double>(settings.rows), 1, c_largestWindow, 2});
}

std::vector<SStepNumber> CutoffOf(const SFilterCutoff& cutoff)
{
    if (cutoff.rule == ECutoffRule::Length)
        return {{Cutoff, cutoff.length, c_smallest, 1}};
    if (cutoff.rule == ECutoffRule::Fraction)
        return {{CutoffShare, cutoff.fraction, c_smallest, 1}};
    return {};
}

bool HasThreshold(const SFilterSettings& settings)
{
    return settings.kind == EFilterKind::Spikes ||
           (settings.kind == EFilterKind::Median && settings.strength == EFilterStrength::Weak);
}

// The weights of a convolution are those of its window.
std::vector<SStepNumber> NumbersOf(const SFilterSettings& settings)
{
    std::vector<SStepNumber> numbers;
    const SStepNumber threshold{Threshold, settings.threshold, c_smallest, c_largestThreshold};
    switch (settings.kind) {
    case EFilterKind::Convolution:
        break;
    case EFilterKind::ProfileGaussian:
    case EFilterKind::ArealGaussian:
        return CutoffOf(settings.cutoff);
    case EFilterKind::Streaks:
        return {{MaximumWidth, static_cast<double>(settings.maximumWidth), 1, c_widestStreak, 1}, threshold};
    case EFilterKind::Gauss:
        AddWindow(settings, numbers);
        numbers.push_back({StandardDeviation, settings.standardDeviation, c_smallest, c_largestDeviation});
        break;
    default:
        AddWindow(settings, numbers);
        if (HasThreshold(settings))
            numbers.push_back(threshold);
    }
    return numbers;
}

std::vector<SStepNumber> NumbersOf(const SInterpolation&)
{
    return {};
}

std::vector<SStepNumber> NumbersOf(const SNoChange&)
{
    return {};
}

double Nearest(const SStepNumber& row, double value)
{
    const double inside = std::clamp(value, row.lowest, row.highest);
    return row.step > 0 ? row.lowest + row.step * std::round((inside - row.lowest) / row.step) : inside;
}

std::string Write(const auto& settings)
{
    CInifile ini;
    settings.Save(ini);
    return ini.GetBytes();
}

std::string Write(const SInterpolation&)
{
    return {};
}

std::string Write(const SNoChange&)
{
    return {};
}

template<class T>
bool Read(CInifile& ini, T& settings)
{
    const CFailureReason unsaid;
    return settings.Load(ini);
}

bool Read(CInifile&, SInterpolation&)
{
    return true;
}

bool Read(CInifile&, SNoChange&)
{
    return true;
}

int Fewer(int points, double factor)
{
    return std::max(1, static_cast<int>(std::lround(points / factor)));
}

int FewerOdd(int points, double factor)
{
    return 2 * static_cast<int>(std::lround((points - 1) / factor / 2)) + 1;
}

// How many equal weights spread as a Gaussian does.
int BoxOf(double standardDeviation)
{
    const double points = std::sqrt(12 * standardDeviation * standardDeviation + 1);
    return 2 * static_cast<int>(std::lround((points - 1) / 2)) + 1;
}

// The one standard deviation is that of the direction with more points; along the other one, the window gives
// the width.
void ScaleDeviation(SFilterSettings& filter, const SPointsPerPoint& ratio)
{
    if (filter.kind != EFilterKind::Gauss)
        return;
    const bool isCurve = filter.application == EFilterApplication::Curve;
    const double least = isCurve ? ratio.x : std::min(ratio.x, ratio.y);
    const double before = filter.standardDeviation;
    filter.standardDeviation = std::max(c_smallest, before / least);
    if (ratio.x > least)
        filter.columns = std::min(filter.columns, BoxOf(before / ratio.x));
    if (!isCurve && ratio.y > least)
        filter.rows = std::min(filter.rows, BoxOf(before / ratio.y));
}

// In a window of a few points nothing stands out.
void KeepSpread(SFilterSettings& filter)
{
    constexpr int c_least = 3;
    filter.columns = std::max(filter.columns, c_least);
    if (filter.application == EFilterApplication::Image)
        filter.rows = std::max(filter.rows, c_least);
}

} // namespace

CStr SProcessStep::GetTitle() const
{
    constexpr std::u16string_view c_separator = u" / ";
    const std::size_t last = name.ReverseFind(c_separator);
    return last == CStr::npos ? name : name.Mid(last + c_separator.size());
}

CStr SProcessStep::Describe() const
{
    if (!isEdited)
        return name;
    CStr numbers;
    for (const SStepNumber& row : GetNumbers(work))
        numbers += CStr::Format(u"%s%s %g", numbers.IsEmpty() ? CStr() : CStr(u", "),
                                CStr(c_numberNames[static_cast<std::size_t>(row.number)]), row.value);
    return CStr::Format(u"%s (%s)", name, numbers);
}

SBatchStep MakeBatchStep(const SSettingsEntry& entry)
{
    return {.type = entry.m_Type,
            .settings = entry.m_IsFile ? CStr(c_filePrefix) + entry.m_File : MakeReference(entry.m_BuiltIn)};
}

SProcessStep LoadStep(CSettingsFactory& factory, const SBatchStep& source)
{
    SProcessStep step{.source = source, .work = SNoChange()};
    if (source.operation != EBatchOperation::Apply) {
        step.name = GetBatchOperationEnum().GetFriendlyString(static_cast<int>(source.operation));
        if (source.operation == EBatchOperation::InterpolateVoids)
            step.work = SInterpolation();
        return step;
    }
    if (source.type == ESettingType::ActiveReport && IsDocumentTemplate(GetReferredPath(source.settings))) {
        step.name = SSettingsEntry(CStr(GetReferredPath(source.settings)), source.type).m_Name;
        return step;
    }
    SNamedSet set = LoadReferredSet(factory, source.type, source.settings);
    step.name = set.name;
    if (source.type == ESettingType::PlaneCorr)
        step.work = ReadNamedSet<SPlaneCorrectionSettings>(set, source.settings);
    else if (source.type == ESettingType::Filter)
        step.work = ReadNamedSet<SFilterSettings>(set, source.settings);
    return step;
}

std::vector<SStepNumber> GetNumbers(const CStepWork& work)
{
    return std::visit([](const auto& settings) { return NumbersOf(settings); }, work);
}

bool SetNumber(CStepWork& work, EStepNumber number, double value)
{
    const auto numbers = GetNumbers(work);
    const auto row = std::ranges::find(numbers, number, &SStepNumber::number);
    if (row == numbers.end() || std::isnan(value))
        return false;
    CStepWork changed = work;
    const double nearest = Nearest(*row, value);
    std::visit([&](auto& settings) { Store(settings, number, nearest); }, changed);
    // Whether the values suit each other is known to who reads a set.
    return ReadWork(WriteWork(changed), work);
}

CStepWork ScaleWork(CStepWork work, const SPointsPerPoint& ratio)
{
    auto* const filter = std::get_if<SFilterSettings>(&work);
    if (!filter || filter->kind == EFilterKind::Convolution || (ratio.x <= 1 && ratio.y <= 1))
        return work;
    filter->columns = FewerOdd(filter->columns, ratio.x);
    filter->rows = FewerOdd(filter->rows, ratio.y);
    filter->maximumWidth = Fewer(filter->maximumWidth, ratio.y);
    ScaleDeviation(*filter, ratio);
    if (HasThreshold(*filter))
        KeepSpread(*filter);
    return work;
}

std::string WriteWork(const CStepWork& work)
{
    return std::visit([](const auto& settings) { return Write(settings); }, work);
}

bool ReadWork(std::string_view text, CStepWork& work)
{
    CInifile ini;
    ini.LoadBytes(std::string(text));
    return std::visit([&](auto& settings) { return Read(ini, settings); }, work);
}

} // namespace CommonUI::Measurement
