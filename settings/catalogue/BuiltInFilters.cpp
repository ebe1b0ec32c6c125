#include "settings/catalogue/detail/BuiltInContents.h"
#include "settings/readers/FilterSettings.h"

namespace CommonUI
{

using Analysis::EPass;

namespace
{

using enum EFilterApplication;
using enum EFilterPolarity;
using enum EFilterStrength;

constexpr SFilterSettings Median(int size, EFilterStrength strength)
{
    return {.kind = EFilterKind::Median, .rows = size, .columns = size, .strength = strength};
}

constexpr SFilterSettings Mean(EFilterApplication application, int rows, int columns)
{
    return {.kind = EFilterKind::Mean, .application = application, .rows = rows, .columns = columns};
}

// The kernel reaches three standard deviations to either side.
constexpr SFilterSettings Gauss(int standardDeviation)
{
    const int size = 2 * 3 * standardDeviation + 1;
    return {.kind = EFilterKind::Gauss,
            .rows = size,
            .columns = size,
            .standardDeviation = static_cast<double>(standardDeviation)};
}

// A spike less than half as wide as the window leaves the spread of the heights in it as it is.
constexpr SFilterSettings Spikes(EFilterApplication application, int rows, int columns, double threshold)
{
    return {.kind = EFilterKind::Spikes,
            .application = application,
            .rows = rows,
            .columns = columns,
            .threshold = threshold};
}

constexpr SFilterSettings Streaks(int maximumWidth, EFilterPolarity polarity)
{
    return {.kind = EFilterKind::Streaks, .polarity = polarity, .maximumWidth = maximumWidth};
}

constexpr SFilterCutoff Metres(double length)
{
    return {.length = length};
}

constexpr SFilterCutoff Part(double divisor)
{
    return {.rule = ECutoffRule::Fraction, .fraction = 1 / divisor};
}

constexpr SFilterSettings Gaussian(EFilterKind kind, ENestingIndex nestingIndex, EPass pass,
                                   SFilterCutoff cutoff)
{
    cutoff.nestingIndex = nestingIndex;
    cutoff.pass = pass;
    return {.kind = kind, .cutoff = cutoff};
}

constexpr SFilterSettings LambdaC(const SFilterCutoff& cutoff)
{
    return Gaussian(EFilterKind::ProfileGaussian, ENestingIndex::LambdaC, EPass::High, cutoff);
}

constexpr SFilterSettings LambdaS(const SFilterCutoff& cutoff)
{
    return Gaussian(EFilterKind::ProfileGaussian, ENestingIndex::LambdaS, EPass::Low, cutoff);
}

constexpr SFilterSettings L(const SFilterCutoff& cutoff)
{
    return Gaussian(EFilterKind::ArealGaussian, ENestingIndex::L, EPass::High, cutoff);
}

constexpr SFilterSettings S(const SFilterCutoff& cutoff)
{
    return Gaussian(EFilterKind::ArealGaussian, ENestingIndex::S, EPass::Low, cutoff);
}

struct SRow {
    int number;
    SFilterSettings set;
};

constexpr SRow c_rows[] = {
    {75, Spikes(Image, 9, 9, 5)},
    {76, Spikes(Image, 5, 5, 5)},
    {77, Spikes(Image, 3, 3, 5)},
    {78, Streaks(1, Bright)},
    {79, Streaks(1, Dark)},
    {80, Streaks(4, Bright)},
    {81, Streaks(4, Dark)},
    {82, Median(15, Full)},
    {83, Median(15, Weak)},
    {84, Median(3, Full)},
    {85, Median(3, Weak)},
    {86, Median(7, Full)},
    {87, Median(7, Weak)},
    {88, Gauss(1)},
    {89, Gauss(2)},
    {90, Mean(Image, 3, 3)},
    {91, Mean(Image, 5, 5)},
    {92, Mean(Image, 9, 9)},
    {93, LambdaC(Part(5))},
    {94, LambdaC(Part(6))},
    {95, LambdaC(Part(7))},
    {96, LambdaC(Metres(0.8e-6))},
    {97, LambdaC(Metres(2.5e-6))},
    {98, LambdaC(Metres(8e-6))},
    {99, LambdaC(Metres(25e-6))},
    {100, LambdaC(Metres(80e-6))},
    {101, LambdaC(Metres(250e-6))},
    {102, LambdaC(Metres(800e-6))},
    {103, LambdaC(Metres(2.5e-3))},
    {104, LambdaC(Metres(8e-3))},
    {105, LambdaC(Metres(25e-3))},
    {106, LambdaS(Metres(0.025e-6))},
    {107, LambdaS(Metres(0.08e-6))},
    {108, LambdaS(Metres(0.25e-6))},
    {109, LambdaS(Metres(0.8e-6))},
    {110, LambdaS(Metres(2.5e-6))},
    {111, LambdaS(Metres(8e-6))},
    {112, LambdaS(Metres(25e-6))},
    {113, L({.rule = ECutoffRule::Automatic})},
    {114, L(Part(5))},
    {115, L(Part(6))},
    {116, L(Part(7))},
    {117, L(Metres(1e-6))},
    {118, L(Metres(2e-6))},
    {119, L(Metres(2.5e-6))},
    {120, L(Metres(5e-6))},
    {121, L(Metres(8e-6))},
    {122, L(Metres(10e-6))},
    {123, L(Metres(20e-6))},
    {124, L(Metres(25e-6))},
    {125, L(Metres(50e-6))},
    {126, L(Metres(80e-6))},
    {127, L(Metres(100e-6))},
    {128, L(Metres(200e-6))},
    {129, L(Metres(250e-6))},
    {130, L(Metres(500e-6))},
    {131, L(Metres(800e-6))},
    {132, L(Metres(1e-3))},
    {133, L(Metres(2e-3))},
    {134, L(Metres(2.5e-3))},
    {135, L(Metres(5e-3))},
    {136, L(Metres(8e-3))},
    {137, L(Metres(10e-3))},
    {138, L(Metres(20e-3))},
    {139, L(Metres(25e-3))},
    {140, L(Metres(50e-3))},
    {141, S(Metres(0.025e-6))},
    {142, S(Metres(0.05e-6))},
    {143, S(Metres(0.08e-6))},
    {144, S(Metres(0.1e-6))},
    {145, S(Metres(0.2e-6))},
    {146, S(Metres(0.25e-6))},
    {147, S(Metres(0.5e-6))},
    {148, S(Metres(0.8e-6))},
    {149, S(Metres(1e-6))},
    {150, S(Metres(2e-6))},
    {151, S(Metres(2.5e-6))},
    {152, S(Metres(5e-6))},
    {153, S(Metres(8e-6))},
    {154, S(Metres(10e-6))},
    {155, S(Metres(20e-6))},
    {156, S(Metres(25e-6))},
    {157, S(Metres(50e-6))},
    {158, S(Metres(80e-6))},
    {159, S(Metres(100e-6))},
    {160, S(Metres(200e-6))},
    {161, S(Metres(250e-6))},
    {162, Mean(Curve, 1, 5)},
    {163, Mean(Curve, 1, 9)},
    {164, Mean(Curve, 1, 25)},
    {165, Mean(Curve, 1, 49)},
    {166, Spikes(Curve, 1, 3, 5)},
    {167, Spikes(Curve, 1, 3, 2.5)},
    {168, Spikes(Curve, 1, 7, 5)},
    {169, Spikes(Curve, 1, 7, 2.5)},
};

static_assert(AreNumbered(c_rows, 75, 169));

} // namespace

void WriteBuiltInFilter(EBuiltInSetting setting, CInifile& ini)
{
    c_rows[static_cast<int>(setting) - c_rows[0].number].set.Save(ini);
}

} // namespace CommonUI
