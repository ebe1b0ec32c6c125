#include "analysis/areal/ArealParameters.h"
#include "analysis/areal/TemplateParameters.h"
#include "analysis/profile/ProfileParameters.h"
#include "tests/analysis/TestSurfaces.h"

#include <cmath>
#include <random>

using namespace CommonUI::Analysis;

namespace
{

SSurface MakeRough()
{
    std::mt19937 random(7);
    return MakeSurface(64, 48, [&random](double x, double y) {
        return 1e-8 * std::sin(x) * std::sin(y) + 1e-9 * static_cast<double>(random() % 97);
    });
}

} // namespace

// What a row says it needs is what is computed for it.
TEST(Quantity, EachAloneIsAsWithAllOthers)
{
    const SSurface surface = MakeRough();
    const std::vector<SQuantity> areal = GetArealQuantities();
    const std::vector<SValue> values = ComputeAreal(surface);
    ASSERT_EQ(values.size(), areal.size());
    for (std::size_t i = 0; i < areal.size(); ++i) {
        const std::vector<SValue> alone = ComputeAreal(surface, {{areal[i].key}});
        ASSERT_EQ(alone.size(), 1u);
        EXPECT_FALSE(std::isnan(values[i].value)) << areal[i].key;
        EXPECT_EQ(alone[0].key, values[i].key);
        EXPECT_EQ(alone[0].value, values[i].value) << areal[i].key;
    }
    const std::vector<SQuantity> profile = GetProfileQuantities();
    const SProfileMethod method{.cutoff = 20e-6}; // not the default
    const std::vector<SValues> tables = ComputeProfiles(surface, method);
    ASSERT_EQ(tables.size(), profile.size());
    for (std::size_t i = 0; i < profile.size(); ++i) {
        const std::vector<SValues> alone = ComputeProfiles(surface, {{profile[i].key}}, method);
        ASSERT_EQ(alone.size(), 1u);
        EXPECT_EQ(alone[0].key, tables[i].key);
        for (std::size_t line = 0; line < surface.lines; ++line)
            ExpectValues({{profile[i].key, alone[0].values[line]}},
                         {ComputeProfile(surface.GetLine(line), surface.dx, method).at(i)});
    }
}

TEST(Quantity, OnlyWhatIsWantedIsComputed)
{
    const SSurface surface = MakeRough();
    const auto values = ComputeAreal(surface, {{"Sz", "nothing", "Sa"}});
    ASSERT_EQ(values.size(), 2u);
    EXPECT_EQ(values[0].key, "Sa"); // in the order of the table
    EXPECT_TRUE(ComputeAreal(surface, {}).empty());
    EXPECT_TRUE(ComputeProfiles(surface, std::span<const std::string_view>()).empty());
    for (const SQuantity& quantity : GetLineTemplates())
        EXPECT_EQ(quantity.IsFiltered(),
                  quantity.key.starts_with("4287R") || quantity.key.starts_with("4287W"))
            << quantity.key;
}
