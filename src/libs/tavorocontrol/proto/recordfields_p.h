#pragma once

// The former name of json/recordfields.h, until nothing includes it.
#include <tavorocontrol/proto/json/recordfields.h>
