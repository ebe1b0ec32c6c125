#include "measurement/charts/Pictures.h"

#include "tests/analysis/TestSurfaces.h"
#include "tests/TestData.h"

using namespace CommonUI;
using namespace CommonUI::Measurement;
using Analysis::MakeSurface;
using Analysis::SSurface;

namespace
{

constexpr double c_gap = Analysis::c_missing;

// What is wrong with the elements of a page, which have to be closed in turn and have attributes in quotes.
std::string FindFault(const std::string& page)
{
    std::vector<std::string> open;
    for (std::size_t at = page.find('<'); at != page.npos; at = page.find('<', at + 1)) {
        const std::size_t end = page.find('>', at);
        const std::string tag = page.substr(at + 1, end - at - 1);
        if (end == page.npos || std::ranges::count(tag, '<') > 0 || std::ranges::count(tag, '"') % 2 != 0)
            return tag.substr(0, 200);
        const std::string name = tag.substr(0, tag.find_first_of(" \n"));
        if (tag.starts_with('/')) {
            if (open.empty() || open.back() != tag.substr(1))
                return tag;
            open.pop_back();
        } else if (!tag.ends_with('/')) {
            open.push_back(name);
        }
    }
    return open.empty() ? "" : open.back();
}

std::string PageOf(SSurface surface, const SMethod& method = {})
{
    surface.missing = static_cast<std::size_t>(
        std::ranges::count_if(surface.heights, [](double height) { return std::isnan(height); }));
    std::string page;
    SResults results;
    if (method.grains)
        results.grains = std::make_shared<SFoundGrains>(
            SFoundGrains{*method.grains, FindGrains(surface, method.grains->threshold, method.grains->kind)});
    for (const std::string& piece : MakePictures({.surface = std::move(surface)}, method, results))
        page += piece;
    return page;
}

} // namespace

TEST(Pictures, AreSoundForAnySurface)
{
    const SMethod roughness;
    const SMethod grains{.grains = SGrainLimit{0.5, Analysis::EGrainKind::Pore}};
    const auto ripples = [](double scale) {
        return [scale](double x, double y) { return scale * std::sin(x * y); };
    };
    const auto noise = [](double x, double y) {
        return std::fmod(std::sin(x * 12.9898 + y * 78.233) * 43758, 1);
    };
    const std::pair<const char*, SSurface> rows[]{
        {"usual", MakeSurface(64, 48, ripples(1e-7))},
        {"constant", MakeSurface(20, 20, [](double, double) { return 3e-6; })},
        {"zero", MakeSurface(20, 20, [](double, double) { return 0; })},
        {"all missing", MakeSurface(20, 20, [](double, double) { return c_gap; })},
        {"one point", MakeSurface(1, 1, ripples(1))},
        {"one point of many", MakeSurface(9, 9, [](double x, double y) { return x + y == 16 ? 1 : c_gap; })},
        {"one line", MakeSurface(5000, 1, [](double x, double) { return std::sin(x); })},
        {"one column", MakeSurface(1, 5000, [](double, double y) { return std::sin(y); })},
        {"tiny", MakeSurface(40, 30, ripples(1e-100))},
        {"huge", MakeSurface(40, 30, ripples(1e90))},
        {"next to flat", MakeSurface(40, 30, [](double x, double) { return 1 + 2e-16 * std::fmod(x, 2); })},
        {"holes",
         MakeSurface(40, 30, [](double x, double y) { return std::fmod(x + y, 3) > 1 ? c_gap : x; })},
        {"noise", MakeSurface(700, 600, noise)},
        {"no points", {}},
    };
    for (const auto& [name, surface] : rows) {
        for (const SMethod& method : {roughness, grains}) {
            const std::string page = PageOf(surface, method);
            SCOPED_TRACE(name);
            EXPECT_EQ(FindFault(page), "");
            EXPECT_LT(page.size(), 1'500'000u);
            for (const char* const fault : {"nan", "inf", "NaN", "INF"})
                EXPECT_EQ(page.find(std::string("\"") + fault), page.npos) << fault;
            EXPECT_FALSE(Has(page, "100000")) << "a coordinate far outside";
        }
    }
}

TEST(Pictures, NeedNothingBesideThePage)
{
    std::string page = PageOf(MakeSurface(64, 48, [](double x, double y) { return x * y; }));
    const std::string space = " xmlns=\"http://www.w3.org/2000/svg\"";
    for (std::size_t at = page.find(space); at != page.npos; at = page.find(space))
        page.erase(at, space.size());
    for (const char* const reference : {"http", "url(", "@import", "<script", "src="})
        EXPECT_FALSE(Has(page, reference)) << reference;
    for (std::size_t at = page.find("href=\""); at != page.npos; at = page.find("href=\"", at + 1))
        EXPECT_EQ(page.substr(at + 6, 5), "data:");
}

TEST(Pictures, SayWhyOneIsNotThere)
{
    const auto flat = [](double, double) { return 1; };
    EXPECT_TRUE(Has(PageOf(MakeSurface(9, 9, flat)), "No power spectrum: "));
    EXPECT_TRUE(Has(PageOf(MakeSurface(9, 9, [](double, double) { return c_gap; })), "No pictures: "));
    const auto wave = [](double x, double) { return std::sin(x); };
    const std::string profile = PageOf(MakeSurface(999, 1, wave));
    EXPECT_FALSE(Has(profile, "<image") || Has(profile, "Sk ")) << "what only a surface has";
    EXPECT_TRUE(Has(PageOf(MakeSurface(999, 4, wave)), "Sk "));
}

TEST(Pictures, ProfileIsTheOneNearestToTheMiddleThatHasPoints)
{
    const auto caption = [](auto isMissing) {
        const std::string page =
            PageOf(MakeSurface(9, 7, [&](double x, double y) { return isMissing(x, y) ? c_gap : x * y; }));
        const std::size_t at = page.find(">Profile") + 1;
        return page.substr(at, page.find('<', at) - at);
    };
    EXPECT_EQ(caption([](double, double) { return false; }), "Profile 4 of 7");
    EXPECT_EQ(caption([](double, double y) { return y > 0 && y < 6; }), "Profile 1 of 7");
    EXPECT_EQ(caption([](double x, double y) { return y != 5 && x > 0; }), "Profile 6 of 7");
}
