#pragma once

#include <support/tavorocontrol/operationtest.h>

#include <tavorocontrol/interface.h>

/// Every write of the class that sends: its form, its code, and the body of a list whose fields are
/// all off their defaults, worked out by hand.
///
/// In a separate file, since moc cannot parse these raw strings.
const std::vector<WriteRow<Tavoro::Control::Interface>> &interfaceWrites();
