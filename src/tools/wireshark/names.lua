-- The numbers of the protocol in words. The names of the device's commands are in the module tavoro.commands.

local commands = require("tavoro.commands")

local names = {}

names.kinds = {
    [1] = "request",
    [2] = "response",
    [3] = "report",
    [4] = "identity request",
    [5] = "identity answer",
    [6] = "ping",
    [7] = "pong",
}

names.types = {
    [1] = "read",
    [2] = "write",
    [3] = "binary read",
    [4] = "binary write",
}

names.statuses = {
    [0] = "success",
    [1] = "unknown command, or the device does not support it with this type",
    [2] = "the command does not accept this body",
    [3] = "the body or the filters name an object that does not exist",
    [4] = "a value is out of range",
    [5] = "not the expected packet of a split exchange",
    [6] = "the answer whose further packet was requested is not kept",
    [7] = "the packet, or the whole of a split write, is longer than the device accepts",
    [8] = "not possible now, for example because of other work or of a limit",
    [9] = "length or hash of a file's content differ from those announced",
    [10] = "storage is full or has failed",
    [67] = "another client holds control of the device",
    [68] = "the device's data was changed by another client: synchronise first",
}

names.checksumIndexes = {
    [0] = "none",
    [1] = "CRC-32",
}

names.checksumStatuses = {
    [0] = "bad",
    [1] = "good",
    [2] = "unverified",
}

names.controlActions = {
    [1] = "take control",
    [2] = "give control up",
    [3] = "take control even if another client holds it",
}

names.outcomes = {
    [0] = "unknown: the device does not remember the request",
    [1] = "not arrived: the request was not and will not be carried out",
    [2] = "under way: the request has arrived and has no answer yet",
    [3] = "done: the request was answered",
}

names.leaseActions = {
    [1] = "take or renew the lease",
    [2] = "release the lease",
}

names.leaseStates = {
    [0] = "free",
    [1] = "this client holds the lease",
    [2] = "another client holds the lease",
}

-- Codes of requests that concern the connection and are not commands of the device.
names.controlCode = 0x0101
names.outcomeCode = 0x0102
names.leaseCode = 0x0103

names.codes = { [names.controlCode] = "Control", [names.outcomeCode] = "Outcome", [names.leaseCode] = "Lease" }
for code, name in pairs(commands) do
    names.codes[code] = name
end

function names.ofCode(code)
    return names.codes[code] or string.format("0x%04X", code)
end

function names.ofType(number)
    return names.types[number] or string.format("type %d", number)
end

function names.ofStatus(status)
    return names.statuses[status] or "a status of this device"
end

return names
