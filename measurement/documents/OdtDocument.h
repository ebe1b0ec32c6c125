#pragma once

#include "../ReportTables.h"
#include "Document.h"

#include <memory>
#include <string_view>

namespace CommonUI::Measurement
{

/// Whether the library is built with what COdtDocument needs.
COMMONUIMEASUREMENT_API bool HasOdt();
/// What is said where it is not.
inline constexpr std::u16string_view c_noOdt = u"this build writes no documents for word processors";

/// Makes a document of word processors: a package of the Open Document Format, text. The same elements make
/// the same bytes. Pictures are vector graphics in the colours of paper.
class COMMONUIMEASUREMENT_API COdtDocument : public CDocumentWriter
{
public:
    /// @param write receives the package when it is finished; must live as long as the object
    /// @throws ERequest where the library is built without libodfgen or libzip
    COdtDocument(const SDocumentPage& page, const FWriteText& write);
    ~COdtDocument() override;
    COdtDocument(const COdtDocument&) = delete;
    COdtDocument& operator=(const COdtDocument&) = delete;

    void Add(const CDocumentElement& element) override;
    /// @throws ERequest where the package cannot be made
    void Finish() override;

private:
    struct SState;

    std::unique_ptr<SState> m_state;
};

} // namespace CommonUI::Measurement
