#include "samplerecords.h"

#include <tavorocontrol/proto/recordcodec.h>

TAVORO_CODEC(Sample::Point)
TAVORO_CODEC(Sample::Identity)
TAVORO_CODEC(Sample::Numbers)
TAVORO_CODEC(Sample::Lists)
TAVORO_CODEC(Sample::Everything)
