#pragma once

// The former name of recordcodec.h, until nothing includes it.
#include <tavorocontrol/proto/recordcodec.h>
