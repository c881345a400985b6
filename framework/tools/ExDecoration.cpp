#include "framework/tools/ExDecoration.h"

ExDecoration::~ExDecoration() = default;
