#include "platform/properties/KxPropertySerializer.h"

KxPropertySerializer::~KxPropertySerializer() = default;
