#include "platform/render/KxInterface.h"

KxInterface::~KxInterface() = default;
