#include "tests/common/InifileTesting.h"

#include <gtest/gtest.h>
#include <map>
#include <random>

using namespace CommonUI;
using namespace std::string_literals;

namespace
{

// Files of pieces that mean something to the store, in an order that means nothing.
class CRandomFile
{
public:
    explicit CRandomFile(unsigned seed)
        : m_random(seed)
    {
    }

    std::size_t Below(std::size_t limit) { return m_random() % limit; }

    std::string Bytes()
    {
        static const std::string characters = "[]=\"\\;# \t\n\n\r,ak\xFF\xFE\xE9\x81\xD8\0"s;
        static const std::string words[] = {
            "[A]\n",   "[B]\r\n",     "[\"A\"]", "k = 1\n",          "k =2",         "k \t= 3\n",
            "\"k=1\n", "\"a\"b=1\n",  "\\u00",   "\xC3\xA9",         "\xED\xA0\x80", "\xC0\x80",
            "\0\xDC"s, "[\0]\0\n\0"s, "key",     "k\0=\0=\xD8\n\0"s, "\xEF\xBB\xBF", "\r\n"};
        std::string bytes = c_emptyFiles[Below(c_emptyFiles.size())];
        for (std::size_t count = Below(60); count > 0; --count)
            if (Below(2) == 0)
                bytes += characters[Below(characters.size())];
            else
                bytes += words[Below(std::size(words))];
        return bytes;
    }

    CStr Text()
    {
        static const char16_t units[] = u"ab =[];#\",\\\t\r\n\u00E9\u4E2D\xD83D\xDE00\uFEFF";
        CStr text;
        for (std::size_t count = Below(5); count > 0; --count)
            text += units[Below(std::size(units))];
        return text;
    }

private:
    std::mt19937 m_random;
};

using CSectionModel = std::map<CStr, CStr>;

// The keys of a section as a user of the store sees them.
CSectionModel Observe(const CInifile& ini)
{
    CSectionModel model;
    for (const CStr& key : ini.GetKeys())
        model[key] = ini.ReadText(key, u"(missing)");
    return model;
}

} // namespace

TEST(InifileFuzz, AnyBytesAreKeptAndMeanTheSameAgain)
{
    for (unsigned seed = 0; seed < 5000; ++seed) {
        const std::string bytes = CRandomFile(seed).Bytes();
        CInifile ini = IniOf(bytes, u"A");
        ASSERT_EQ(ini.GetBytes(), bytes) << seed;
        CInifile merged;
        merged.Merge(ini);
        for (const CStr& section : ini.GetSections()) {
            ini.SelectSection(section);
            merged.SelectSection(section);
            ASSERT_EQ(Observe(merged), Observe(ini)) << seed;
            for (const auto& [key, value] : Observe(ini))
                ini.WriteText(key, value);
        }
        ASSERT_EQ(ini.GetBytes(), bytes) << seed;
    }
}

TEST(InifileFuzz, EditsOfAnyFileReadBack)
{
    for (unsigned seed = 0; seed < 3000; ++seed) {
        CRandomFile random(seed);
        CInifile ini =
            IniOf(seed % 2 == 0 ? random.Bytes() : c_emptyFiles[random.Below(c_emptyFiles.size())]);
        std::map<CStr, CSectionModel> models;
        const std::vector<CStr> keys = {u"k", u"k ", u"\"k", u"a", random.Text(), random.Text()};
        const std::vector<CStr> sections = {u"", u"A", random.Text()};
        for (int step = 0; step < 30; ++step) {
            ini.SelectSection(sections[random.Below(sections.size())]);
            CSectionModel& model = models.try_emplace(ini.GetSection(), Observe(ini)).first->second;
            const CStr& key = keys[random.Below(keys.size())];
            if (random.Below(20) == 0) {
                ini.ClearSection();
                model.clear();
            } else if (random.Below(4) == 0) {
                ini.RemoveKey(key);
                // Without a key of the name, the one that is read in its place goes.
                if (model.erase(key) == 0)
                    model = Observe(ini);
            } else {
                const CStr value = random.Text();
                ini.WriteText(key, value);
                model[key] = value;
            }
            ASSERT_EQ(Observe(ini), model) << seed;
            const CInifile reloaded = Reloaded(ini);
            ASSERT_EQ(Observe(reloaded), model) << seed;
            ASSERT_EQ(reloaded.ReadText(keys[0]), ini.ReadText(keys[0])) << seed;
        }
    }
}

// Each takes a moment in linear time and at least minutes in quadratic time.
TEST(InifileFuzz, HugeFilesTakeLinearTime)
{
    const auto repeated = [](const std::string& piece, std::size_t count) {
        std::string bytes;
        while (count-- > 0)
            bytes += piece;
        return bytes;
    };
    std::string sections;
    std::string blanks;
    for (int i = 0; i < 100000; ++i) {
        sections += "[" + std::to_string(i) + "]\nk=1\n";
        blanks += "k";
        for (int bit = 1; bit <= i; bit *= 2)
            blanks += (i & bit) != 0 ? " " : "\t";
        blanks += i % 3 == 0 ? "= 1\n" : "=1\n";
    }
    std::vector<std::string> files = {sections, blanks, "k=" + repeated("\\", 3000000)};
    for (const std::string& piece :
         {"["s, "\""s, "\r"s, "\0"s, "x"s, "\"\\"s, "k=1\n"s, "x\n\n"s, "[\"\n"s, "[A]\nk=1\n"s})
        files.push_back(repeated(piece, 1000000 / piece.size()));
    for (const std::string& bytes : files) {
        CInifile ini = IniOf(bytes, u"A");
        EXPECT_TRUE(ini.GetBytes() == bytes);
        ini.WriteInt(u"k", 2);
        for (const CStr& section : ini.GetSections()) {
            ini.SelectSection(section);
            for (const CStr& key : ini.GetKeys())
                ini.RemoveKey(key);
        }
        EXPECT_FALSE(Reloaded(ini).HasKey(u"k"));
    }
}
