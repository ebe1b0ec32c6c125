#include "common/Diagnostics.h"
#include "tests/fuzz/Targets.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>

// The entries that the fuzzer calls. Its first argument is the name of the target.

namespace
{

const Fuzz::STarget* g_target = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments)
{
    const auto targets = Fuzz::GetTargets();
    const std::string_view name = *count > 1 ? (*arguments)[1] : "";
    const auto found = std::ranges::find(targets, name, &Fuzz::STarget::name);
    if (found == targets.end()) {
        std::puts("the targets are:");
        for (const Fuzz::STarget& target : targets)
            std::printf("%s\n", target.name.data());
        std::exit(2);
    }
    g_target = &*found;
    std::copy(*arguments + 2, *arguments + *count, *arguments + 1);
    --*count;
    CommonUI::GetDiagnostics().SetSink([](const CommonUI::SDiagnosticLine&) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        g_target->run({reinterpret_cast<const char*>(data), size});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", g_target->name.data(), error.what());
        std::abort();
    }
    return 0;
}
