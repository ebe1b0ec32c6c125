// Long texts to UTF-8 and back, texts that grow by units, and their order, beside QString and std::u16string.
// The limit of a text of ASCII is copying its bytes.
#include "common/Str.h"

#include <benchmark/benchmark.h>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

using namespace CommonUI;

namespace
{

constexpr std::size_t c_length = 1'000'000;

// What a text is made of.
enum EKind : std::int64_t { Ascii, German, Chinese };

std::u16string MakeText(std::int64_t kind)
{
    std::u16string text;
    for (std::size_t i = 0; i < c_length; ++i) {
        if (kind == Chinese)
            text += static_cast<char16_t>(0x4E00 + i % 1000);
        else
            text += kind == German && i % 20 == 7 ? u'ä' : static_cast<char16_t>(u'a' + i % 26);
    }
    return text;
}

void ToUtf8_Ours(benchmark::State& state)
{
    const CStr text(MakeText(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(text.ToUtf8());
}

void ToUtf8_QString(benchmark::State& state)
{
    const QString text = QString::fromStdU16String(MakeText(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(text.toUtf8());
}

void FromUtf8_Ours(benchmark::State& state)
{
    const std::string bytes = CStr(MakeText(state.range(0))).ToUtf8();
    for (auto _ : state)
        benchmark::DoNotOptimize(CStr::FromUtf8(bytes));
}

void FromUtf8_QString(benchmark::State& state)
{
    const QByteArray bytes = QString::fromStdU16String(MakeText(state.range(0))).toUtf8();
    for (auto _ : state)
        benchmark::DoNotOptimize(QString::fromUtf8(bytes));
}

void CopyBytes(benchmark::State& state)
{
    const std::string bytes(c_length, 'a');
    std::vector<char> copy(c_length);
    for (auto _ : state) {
        std::memcpy(copy.data(), bytes.data(), bytes.size());
        benchmark::ClobberMemory();
    }
}

template<class TText>
void AppendUnits(benchmark::State& state)
{
    for (auto _ : state) {
        TText text;
        for (std::size_t i = 0; i < 1000; ++i)
            text += u'x';
        benchmark::DoNotOptimize(text);
    }
}

template<class TText>
void Order(benchmark::State& state)
{
    const std::u16string same(64, u'x');
    const TText a((same + u'a').c_str());
    const TText b((same + u'b').c_str());
    for (auto _ : state) {
        benchmark::ClobberMemory();
        benchmark::DoNotOptimize(a < b);
    }
}

// QString takes units of its own.
void Order_QString(benchmark::State& state)
{
    const QString a = QString(64, u'x') + u'a';
    const QString b = QString(64, u'x') + u'b';
    for (auto _ : state) {
        benchmark::ClobberMemory();
        benchmark::DoNotOptimize(a < b);
    }
}

} // namespace

BENCHMARK(ToUtf8_Ours)->DenseRange(Ascii, Chinese);
BENCHMARK(ToUtf8_QString)->DenseRange(Ascii, Chinese);
BENCHMARK(FromUtf8_Ours)->DenseRange(Ascii, Chinese);
BENCHMARK(FromUtf8_QString)->DenseRange(Ascii, Chinese);
BENCHMARK(CopyBytes);
BENCHMARK(AppendUnits<CStr>);
BENCHMARK(AppendUnits<std::u16string>);
BENCHMARK(Order<CStr>);
BENCHMARK(Order<std::u16string>);
BENCHMARK(Order_QString);
