#include "common/StringTable.h"
#include "qt/services/QtServices.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QStandardPaths>

#include <algorithm>
#include <deque>
#include <string>
#include <vector>

namespace
{

// Texts half as long again, as those of other languages are.
void LengthenTexts()
{
    static std::deque<std::u16string> texts;
    std::vector<CommonUI::SStringTableRow> rows;
    for (const auto& [id, text] : CommonUI::GetEnglishStringTable()) {
        std::u16string more(text.substr(0, (text.size() + 1) / 2));
        // Formats and mnemonics are there once.
        std::erase_if(more,
                      [](char16_t letter) { return letter == u'%' || letter == u'&' || letter == u'\n'; });
        texts.push_back(std::u16string(text) + more);
        rows.push_back({id, texts.back()});
    }
    CommonUI::ReplaceStringTable(rows);
}

} // namespace

// With --long-texts all texts are half as long again.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (argc > 1 && std::string_view(argv[1]) == "--long-texts")
        LengthenTexts();
    const QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    QApplication::setApplicationDisplayName(QStringLiteral("Qt tests"));
    const CommonUI::CQtServices services;
    return RUN_ALL_TESTS();
}
