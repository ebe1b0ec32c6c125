#include "measurement/Request.h"

namespace CommonUI::Measurement
{

ERequest::ERequest(const CStr& subject, const CStr& reason)
    : EInput(u"Request", 0, u"", subject.IsEmpty() ? reason : subject + u": " + reason)
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
