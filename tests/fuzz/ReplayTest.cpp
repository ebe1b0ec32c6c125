#include "common/Diagnostics.h"
#include "TestFolders.h"
#include "tests/fuzz/Targets.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace
{

class AnyBytes : public testing::TestWithParam<Fuzz::STarget>
{
protected:
    AnyBytes()
    {
        CommonUI::GetDiagnostics().SetSink([](const CommonUI::SDiagnosticLine&) {});
    }
    ~AnyBytes() override { CommonUI::GetDiagnostics().SetSink({}); }

    static std::vector<std::string> Corpus()
    {
        std::vector<std::string> inputs;
        const auto folder = std::filesystem::path(COMMONUI_FUZZ_CORPUS) / GetParam().name;
        // In an order that is the same everywhere, so that inputs are made of the same ones.
        const std::set<std::filesystem::path> paths(std::filesystem::directory_iterator(folder), {});
        for (const std::filesystem::path& path : paths) {
            std::ifstream file(path, std::ios::binary);
            inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
        }
        return inputs;
    }

    static void Run(const std::string& input)
    {
        EXPECT_NO_THROW(GetParam().run(input)) << testing::PrintToString(input);
    }
};

class CMutations
{
public:
    explicit CMutations(const std::vector<std::string>& inputs)
        : m_inputs(inputs)
    {
    }

    // A few changes of one input: bytes, pieces left out or doubled, pieces of other inputs.
    std::string Make()
    {
        std::string bytes = m_inputs[Below(m_inputs.size())];
        for (std::size_t changes = 1 + Below(4); changes > 0; --changes)
            Change(bytes);
        return bytes;
    }

private:
    std::size_t Below(std::size_t limit) { return m_random() % limit; }

    void Change(std::string& bytes)
    {
        const std::size_t place = Below(bytes.size() + 1);
        const std::size_t length = Below(std::min<std::size_t>(bytes.size() - place, 40) + 1);
        const std::string& other = m_inputs[Below(m_inputs.size())];
        switch (Below(4)) {
        case 0:
            bytes.insert(place, 1, static_cast<char>(Below(256)));
            break;
        case 1:
            bytes.erase(place, length);
            break;
        case 2:
            bytes.insert(place, bytes.substr(place, length));
            break;
        default:
            bytes.insert(place, other.substr(Below(other.size() + 1), 40));
            break;
        }
    }

    const std::vector<std::string>& m_inputs;
    std::mt19937 m_random{1};
};

} // namespace

TEST_P(AnyBytes, KeepThePromises)
{
    const std::vector<std::string> inputs = Corpus();
    ASSERT_FALSE(inputs.empty());
    Run({});
    for (const std::string& input : inputs)
        Run(input);
    CMutations mutations(inputs);
    for (int i = 0; i < GetParam().tries && !HasFailure(); ++i)
        Run(mutations.Make());
}

INSTANTIATE_TEST_SUITE_P(Of, AnyBytes,
                         testing::ValuesIn(Fuzz::GetTargets().begin(), Fuzz::GetTargets().end()),
                         [](const auto& target) {
                             std::string name(target.param.name);
                             std::erase(name, '-');
                             return name;
                         });
