#include "platform/backend/KxTaskControl.h"

KxTaskControl::~KxTaskControl() = default;
