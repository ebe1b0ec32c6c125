#include "measurement/Request.h"

#include "common/ControlCharacters.h"

namespace CommonUI::Measurement
{

// What is wrong stands in one line, whatever the subject has in it.
ERequest::ERequest(const CStr& subject, const CStr& reason)
    : EInput(u"Request", 0, u"", ReplaceControls(subject.IsEmpty() ? reason : subject + u": " + reason, u'?'))
    , m_subject(subject)
{
}

ERequest::~ERequest() = default;

EUnknownSet::EUnknownSet(const CStr& userSpec)
    : ERequest(userSpec, u"there is no such set")
{
}

EUnknownSet::~EUnknownSet() = default;

} // namespace CommonUI::Measurement
