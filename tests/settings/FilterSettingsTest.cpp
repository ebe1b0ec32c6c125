#include "settings/readers/FilterSettings.h"
#include "tests/settings/SettingsTesting.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace CommonUI;

TEST(FilterSettings, WhatIsNotSaidHasItsDefault)
{
    using enum EFilterKind;
    using enum EFilterApplication;
    const std::pair<const char16_t*, SFilterSettings> rows[] = {
        {u"Kind=Median", {.kind = Median, .rows = 3, .columns = 3}},
        {u"Kind=Median\nThreshold=none", {.kind = Median, .rows = 3, .columns = 3}},
        {u"Kind=Mean\nApplication=Curve", {.kind = Mean, .application = Curve, .columns = 3}},
        {u"Kind=Gauss\nStandardDeviation=1.5",
         {.kind = Gauss, .rows = 11, .columns = 11, .standardDeviation = 1.5}},
        {u"Kind=Gauss\nStandardDeviation=40\nRows=1",
         {.kind = Gauss, .rows = 1, .columns = 241, .standardDeviation = 40}},
        {u"Kind=Convolution\nApplication=Curve\nWeights=1, 2, 1",
         {.kind = Convolution, .application = Curve, .columns = 3, .weights = {1, 2, 1}}},
        {u"Kind=Spikes", {.kind = Spikes, .rows = 3, .columns = 3}},
        {u"Kind=Spikes\nApplication=Curve", {.kind = Spikes, .application = Curve, .columns = 3}},
        {u"Kind=Streaks\nRows=even", {.kind = Streaks}},
        {u"Kind=ProfileGaussian\nCutoff=8e-4", {.kind = ProfileGaussian, .cutoff = {.length = 0.8e-3}}},
        {u"Kind=ProfileGaussian\nCutoff=1\nPass=Low",
         {.kind = ProfileGaussian, .cutoff = {.pass = Analysis::EPass::Low, .length = 1}}},
        {u"Kind=ArealGaussian\nCutoffRule=Automatic\nCutoff=0\nRows=4",
         {.kind = ArealGaussian,
          .cutoff = {.nestingIndex = ENestingIndex::L, .rule = ECutoffRule::Automatic}}},
        {u"Kind=ArealGaussian\nNestingIndex=S\nCutoffRule=Fraction\nCutoffFraction=1",
         {.kind = ArealGaussian,
          .cutoff = {.nestingIndex = ENestingIndex::S,
                     .pass = Analysis::EPass::Low,
                     .rule = ECutoffRule::Fraction,
                     .fraction = 1}}},
    };
    for (const auto& [text, expected] : rows) {
        CInifile ini = Document(CStr(u"[Filter]\n") + text);
        SFilterSettings set{.kind = Streaks, .threshold = 7, .weights = {1}};
        EXPECT_TRUE(set.Load(ini)) << CStr(text).ToUtf8();
        EXPECT_EQ(Bytes(set), Bytes(expected));
        EXPECT_TRUE(set == expected) << CStr(text).ToUtf8();
    }
}

TEST(FilterSettings, ConvolutionIsReadAsItWasSaved)
{
    const SFilterSettings laplace{
        .kind = EFilterKind::Convolution, .rows = 3, .columns = 3, .weights = {0, 1, 0, 1, -4, 1, 0, 1, 0.1}};
    CInifile ini = Document(u"[Filter]\nKind=ArealGaussian\nCutoff=1\n");
    laplace.Save(ini);
    SFilterSettings read;
    EXPECT_TRUE(read.Load(ini));
    EXPECT_TRUE(read == laplace);
    EXPECT_EQ(ini.GetBytes(), Bytes(laplace));
}

TEST(FilterSettings, CutoffLengthFollowsItsRule)
{
    const SFilterCutoff given{.length = 0.8e-3};
    const SFilterCutoff seventh{.rule = ECutoffRule::Fraction, .fraction = 1. / 7};
    const SFilterCutoff automatic{.rule = ECutoffRule::Automatic};
    EXPECT_EQ(given.GetLength(0), 0.8e-3);
    EXPECT_DOUBLE_EQ(seventh.GetLength(5.6e-3), 0.8e-3);
    const std::pair<double, double> rows[] = {
        {4e-3, 0.8e-3},   {3.9999e-3, 0.5e-3},   {12.5e-3, 2.5e-3},    {10e-6, 2e-6},
        {9e-6, 1e-6},     {4.9999e-6, 0.8e-6},   {49e-6, 8e-6},        {5, 1},
        {3 * 0.1, 50e-3}, {40 * 0.1e-3, 0.8e-3}, {3 * 0.4e-3, 0.2e-3}, {5e3, 1e3},
    };
    for (const auto& [evaluationLength, cutoff] : rows)
        EXPECT_DOUBLE_EQ(automatic.GetLength(evaluationLength), cutoff) << evaluationLength;
    for (const double none : {0., -1., std::numeric_limits<double>::quiet_NaN(), HUGE_VAL}) {
        EXPECT_EQ(seventh.GetLength(none), 0) << none;
        EXPECT_EQ(automatic.GetLength(none), 0) << none;
    }
    for (double power = -300; power < 308; power += 0.37) {
        const double length = std::pow(10, power);
        const double ratio = length / automatic.GetLength(length);
        EXPECT_TRUE(ratio > 4.99 && ratio < 10.01) << power;
    }
}
