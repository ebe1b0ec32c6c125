#include "common/Language.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

using namespace CommonUI;

namespace
{

// One text in English and in another language.
struct STextPair {
    int id;
    std::string english;
    std::string translated;
};

using CTexts = std::map<int, std::string>;

CTexts TextsOf(const SLanguage& language)
{
    CTexts texts;
    for (const SStringTableRow& row : language.getTexts())
        texts[row.id] = CStr(row.text).ToUtf8();
    return texts;
}

template<class FCheck>
void ForEachTranslation(FCheck check)
{
    for (const SLanguage& language : GetLanguages().subspan(1)) {
        const CTexts texts = TextsOf(language);
        std::vector<STextPair> pairs;
        for (const auto& [id, english] : TextsOf(GetLanguages().front()))
            if (const auto found = texts.find(id); found != texts.end())
                pairs.push_back({id, english, found->second});
        SCOPED_TRACE(language.tag);
        check(pairs);
    }
}

// Everything in which both texts have to be the same.
template<class FGet>
void ExpectSame(FGet get)
{
    ForEachTranslation([&get](const std::vector<STextPair>& pairs) {
        for (const STextPair& pair : pairs)
            EXPECT_EQ(get(pair.translated), get(pair.english)) << pair.id << ": " << pair.translated;
    });
}

std::vector<std::string> FindAll(const std::string& text, const std::regex& part)
{
    std::vector<std::string> found;
    for (std::sregex_iterator i(text.begin(), text.end(), part), end; i != end; ++i)
        found.push_back(i->str());
    return found;
}

// The mnemonics, as capital letters; "&&" and an "&" between blanks are characters.
std::string MnemonicsOf(const std::string& text)
{
    std::string found;
    for (const std::string& mnemonic : FindAll(text, std::regex("&&|&[^ ]")))
        if (mnemonic != "&&")
            found += static_cast<char>(std::toupper(static_cast<unsigned char>(mnemonic[1])));
    return found;
}

// What may be the same in both languages: words that German has, too, names, units. Symbols of quantities
// need no row.
const std::string c_international = " ActiveReport Animation Beige Classic Cyan Demo FFT Filter Format Giga "
                                    "Global Gold Hardware ID ISO Indigo"
                                    " Kilo Magenta Marker Maximum Median Mega Mil Milli Minimum Name Nano OK "
                                    "Orange Plus Pore Radius Software Start"
                                    " Text VORN \u00c5ngstr\u00f6m mm \u03bbc \u03bbs ";

bool IsInternational(const std::string& text)
{
    return std::ranges::all_of(FindAll(text, std::regex("[^ 0-9.,:/()%&-]{2,}")),
                               [](const std::string& word) {
                                   return c_international.find(" " + word + " ") != c_international.npos;
                               });
}

// The long text of a quantity begins with its short one, in which made parameters put their values.
bool IsSymbol(const CTexts& texts, int id)
{
    constexpr int c_fromLongText = 200;
    const auto text = texts.find(id);
    const auto longText = texts.find(id - c_fromLongText);
    return text != texts.end() && longText != texts.end() &&
           longText->second.starts_with(text->second + ", ");
}

[[noreturn]] void UseAndAsk(std::initializer_list<std::pair<const char*, bool>> calls, const char16_t* length)
{
    bool right = true;
    for (const auto& [tag, expected] : calls)
        right = UseLanguage(tag) == expected && right;
    constexpr int c_length = 7340;
    right = GetString(c_length) == length && right;
    right = !UseLanguage("de") && GetString(c_length) == length && right;
    std::exit(right ? 0 : 1);
}

} // namespace

TEST(Language, Tags)
{
    for (const char* const tag : {"de", "DE", "de-AT", "de_DE.UTF-8", "de.ISO-8859-1", "De@euro"}) {
        ASSERT_TRUE(FindLanguage(tag)) << tag;
        EXPECT_EQ(FindLanguage(tag)->tag, "de");
    }
    EXPECT_EQ(FindLanguage("en_GB"), &GetLanguages().front());
    for (const char* const tag : {"", "d", "deu", "_de", "de DE", "fr-DE", "C", "C.UTF-8", "POSIX"})
        EXPECT_FALSE(FindLanguage(tag)) << tag;
}

TEST(Language, IsChosenBeforeTheFirstText)
{
    // Processes of their own, in which no text has been asked for.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto exitsWell = testing::ExitedWithCode(0);
    EXPECT_EXIT(UseAndAsk({{"en", true}, {"de_DE.UTF-8", true}}, u"L\u00e4nge"), exitsWell, "");
    EXPECT_EXIT(UseAndAsk({{"de", true}, {"tlh", false}}, u"Length"), exitsWell, "");
}

TEST(Language, HasEveryText)
{
    const CTexts english = TextsOf(GetLanguages().front());
    for (const SLanguage& language : GetLanguages()) {
        SCOPED_TRACE(language.tag);
        const CTexts texts = TextsOf(language);
        for (const auto& [id, text] : english)
            EXPECT_TRUE(texts.contains(id)) << "no text " << id << ", \"" << text << '"';
        int before = 0;
        for (const SStringTableRow& row : language.getTexts()) {
            EXPECT_TRUE(english.contains(row.id)) << row.id << " is no text any more";
            EXPECT_GT(row.id, before) << "out of order, or there twice";
            before = row.id;
        }
    }
}

TEST(Language, KeepsFormats)
{
    // A blank is a flag, too, but in "20 % of" no conversion begins; in a format it would.
    const std::regex plain(R"(%[-+#0]*(\*|\d+)?(\.(\*|\d*))?(I32|I64|[hlzjtL]+)?[diuxXocsfFeEgG%])");
    const std::regex any(R"(%[-+ #0]*(\*|\d+)?(\.(\*|\d*))?(I32|I64|[hlzjtL]+)?[diuxXocsfFeEgG%])");
    ForEachTranslation([&](const std::vector<STextPair>& pairs) {
        for (const STextPair& pair : pairs) {
            const auto expected = FindAll(pair.english, plain);
            EXPECT_EQ(FindAll(pair.translated, expected.empty() ? plain : any), expected)
                << pair.id << ": " << pair.translated;
        }
    });
}

TEST(Language, KeepsMnemonics)
{
    ExpectSame([](const std::string& text) { return MnemonicsOf(text).size(); });
    ForEachTranslation([](const std::vector<STextPair>& pairs) {
        // The texts of a menu or a dialog have ids without a gap. What has two keys in English has two here.
        std::map<std::string, std::string> taken;
        int before = 0;
        for (const auto& [id, english, translated] : pairs) {
            if (id != before + 1)
                taken.clear();
            before = id;
            const std::string mnemonics = MnemonicsOf(english);
            const auto place = taken.emplace(MnemonicsOf(translated), mnemonics).first;
            EXPECT_EQ(place->second, mnemonics) << id << ": taken before " << translated;
        }
    });
}

TEST(Language, KeepsBlanksLinesAndEnds)
{
    ExpectSame([](const std::string& text) { return FindAll(text, std::regex("^\\s+|\\s+$|\n+|\t|\r")); });
    ExpectSame(
        [](const std::string& text) { return FindAll(text, std::regex("(\\.\\.\\.|\u2026|[.:?!])\\s*$")); });
}

TEST(Language, KeepsSymbols)
{
    const CTexts english = TextsOf(GetLanguages().front());
    for (const SLanguage& language : GetLanguages()) {
        const CTexts texts = TextsOf(language);
        for (const auto& [id, text] : texts)
            EXPECT_EQ(IsSymbol(texts, id), IsSymbol(english, id)) << id << ": " << text;
    }
}

TEST(Language, IsTranslated)
{
    const CTexts texts = TextsOf(GetLanguages().front());
    const std::regex englishWords("\\b(and|for|is|not|of|please|the|with)\\b", std::regex::icase);
    ForEachTranslation([&](const std::vector<STextPair>& pairs) {
        for (const auto& [id, english, translated] : pairs) {
            const bool isSymbol = IsSymbol(texts, id) && english != "Count";
            EXPECT_TRUE(isSymbol || IsInternational(english) || translated != english)
                << id << ": " << english;
            const std::string withoutKey = std::regex_replace(translated, std::regex("&"), "");
            EXPECT_FALSE(std::regex_search(withoutKey, englishWords)) << id << ": " << translated;
        }
    });
}
