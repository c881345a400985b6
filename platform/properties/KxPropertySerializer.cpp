#include "platform/properties/KxPropertySerializer.h"

KxPropertySerializer::~KxPropertySerializer() = default;

void KxPropertySerializer::tellProblem(const QString &place) const
{
    // A copy, since the handler may replace itself.
    if (const ProblemHandler handler = m_problemHandler) {
        handler(place);
    }
}
