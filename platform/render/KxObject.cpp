#include "platform/render/KxObject.h"

#include <atomic>

namespace {

std::atomic<int> lastObjectId = 0;

} // namespace

KxObject::KxObject()
    : m_objectId(++lastObjectId)
{ }

KxObject::~KxObject() = default;
