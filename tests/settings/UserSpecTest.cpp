#include "tests/settings/SettingsFactoryTesting.h"

using namespace CommonUI;
using enum ESettingType;

TEST_F(SettingsFactory, ValidSpecifications)
{
    SSettingsEntry met(u"/a/x.pln", PlaneCorr);
    m_factory.NewDynamicItem(met, false);
    const std::tuple<CStr, int, ESettingType, CStr> c_cases[] = {
        {u"PlaneCorr[File(C:\\s\\x.pln)]", 1, PlaneCorr, u"x.pln 201"},
        {u"PlaneCorr[File(/a/x.pln)]", 1, PlaneCorr, u"x.pln 200"},
        {u"Filter[File( b (1) )]", 1, Filter, u" b (1)  202"},
        {u"Filter[File(http://a/%s[)]rest", 1, Filter, u"%s[ 203"},
        {u"settings://Filter[File(x)]", 1, Filter, u"x 204"},
        {u"PlaneCorr[Id(5)]", 2, PlaneCorr, u"Linewise Bow Removal 5"},
        {u"PlaneCorr[Id(200)]", 2, PlaneCorr, u"x.pln 200"},
        {u"PlaneCorr[Id(PlaneCorrQuickLaunchImageLeveling)]", 2, PlaneCorr, u"Global Leveling 4"},
        {u"settings://ColorScale[Id(175)]", 2, ColorScale, u"Glow 175"},
        {u"Filter[File(xy]", 1, Filter, u"x 204"},
    };
    for (const auto& [spec, kind, type, tree] : c_cases) {
        CSettingsFactory::SParseInfo info;
        EXPECT_TRUE(m_factory.ParseUserSpec(spec, info));
        EXPECT_EQ(info.kind, kind);
        EXPECT_EQ(info.type, type);
        EXPECT_EQ(info.typeText, spec.Left(spec.Find(u'[')));
        EXPECT_TRUE(info.error.IsEmpty());
        EXPECT_EQ(Text(m_factory.GetTree(info)), tree);
        for (std::size_t length = 0; length < spec.Find(u']'); ++length) {
            const CStr prefix = spec.Left(length);
            EXPECT_FALSE(m_factory.ParseUserSpec(prefix, info));
            EXPECT_EQ(info.error, u"Syntax error in specification: " + prefix);
            EXPECT_TRUE(info.kind == 0 && info.typeText.IsEmpty() && info.type == Unknown &&
                        info.entries.empty());
        }
    }
    EXPECT_EQ(Recent(Filter), u"");
    m_factory = {};
    CSettingsFactory::SParseInfo info;
    EXPECT_TRUE(m_factory.ParseUserSpec(u"PlaneCorr[File(C:\\s\\x.pln)]", info));
    EXPECT_EQ(info.entries.at(0).m_File, u"C:\\s\\x.pln");
    EXPECT_EQ(m_factory.GetNewID(), 200U);
}

TEST_F(SettingsFactory, IdentifiersThatNameNothing)
{
    SSettingsEntry met(u"/a/x.flt", Filter);
    m_factory.NewDynamicItem(met, false);
    for (const CStr id :
         {u"0", u"22", u"200", u"201", u"-5", u"+5", u" 5", u"5 ", u"5.0", u"99999999999999999999",
          u"4294967300", u"CSQuickLaunchGlow", u"Nobody", u"Global Leveling"}) {
        CSettingsFactory::SParseInfo info;
        EXPECT_TRUE(m_factory.ParseUserSpec(u"PlaneCorr[Id(" + id + u")]", info));
        EXPECT_EQ(info.kind, 2);
        EXPECT_TRUE(info.entries.empty());
        EXPECT_TRUE(m_factory.GetTree(info).empty());
    }
}

TEST_F(SettingsFactory, WrongSpecifications)
{
    const std::pair<std::u16string_view, std::vector<CStr>> c_cases[] = {
        {u"Syntax error in specification: %s",
         {u"", u"PlaneCorr(File(x))", u"Nothing[File(x)]", u"Unknown[Id(5)]", u"plancorr[Id(5)]",
          u" PlaneCorr[Id(5)]", u"]PlaneCorr[Id(5)]", u"][", u"[Id(5)]", u"PlaneCorr[Id()]",
          u"PlaneCorr[Id(]", u"http://PlaneCorr[Id(5)]", u"://PlaneCorr[Id(5)]", u"settings://[Id(5)]",
          u"Settings://PlaneCorr[Id(5)]", u"settings://settings://PlaneCorr[Id(5)]", u"%s[File(%d)]",
          u"Nothing[File()]"}},
        {u"Syntax error in specification: '%s', either Id<> of File<> must be specified",
         {u"PlaneCorr[Name(x)]", u"PlaneCorr[]", u"PlaneCorr[file(x)]", u"PlaneCorr[ File(x)]",
          u"PlaneCorr[File]", u"Nothing[ID(5)]"}},
        {u"Syntax error in specification: '%s', File<> specification needs filename",
         {u"PlaneCorr[File()]", u"PlaneCorr[File(]", u"PlaneCorr[File(a]b)]",
          u"settings://PlaneCorr[File()]"}},
    };
    for (const auto& [error, specs] : c_cases) {
        for (const CStr& spec : specs) {
            CSettingsFactory::SParseInfo info;
            EXPECT_FALSE(m_factory.ParseUserSpec(spec, info));
            EXPECT_EQ(info.error, CStr::Format(error, spec));
        }
    }
    // What was understood before the fault.
    CSettingsFactory::SParseInfo info;
    m_factory.ParseUserSpec(u"PlaneCorr[File()]", info);
    EXPECT_TRUE(info.kind == 1 && info.typeText == u"PlaneCorr" && info.type == PlaneCorr);
    EXPECT_TRUE(info.entries.empty());
}
