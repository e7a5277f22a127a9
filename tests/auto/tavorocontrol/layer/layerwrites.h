#pragma once

#include <support/tavorocontrol/operationtest.h>

#include <tavorocontrol/layer.h>

/// Every write of the class that takes a list: its form, its code, and the body of a list whose
/// fields are all off their defaults, worked out by hand.
///
/// In a separate file, since moc cannot parse these raw strings.
const std::vector<WriteRow<Tavoro::Control::Layer>> &layerWrites();
