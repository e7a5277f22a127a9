-- The protocol over TCP as Wireshark knows it: fields, expert information, preferences.

local names = require("tavoro.names")

local fields = { proto = Proto("tavoro", "Tavoro Device Protocol") }

fields.head = {
    flag = ProtoField.uint16("tavoro.flag", "Flag", base.HEX),
    version = ProtoField.uint8("tavoro.version", "Version", base.DEC),
    tag = ProtoField.uint8("tavoro.tag", "Tag (lables)", base.DEC),
    bodyLength = ProtoField.uint32("tavoro.body_length", "Body length", base.DEC),
    status = ProtoField.uint8("tavoro.status", "Status", base.DEC, names.statuses),
    checksumIndex = ProtoField.uint8("tavoro.checksum_index", "Checksum index", base.DEC, names.checksumIndexes),
    kind = ProtoField.uint8("tavoro.kind", "Kind", base.DEC, names.kinds),
    headChecksum = ProtoField.uint16("tavoro.head_checksum", "Head checksum", base.HEX),
    bodyChecksum = ProtoField.uint32("tavoro.body_checksum", "Body checksum", base.HEX),
    stream = ProtoField.uint16("tavoro.stream", "Stream", base.DEC),
    type = ProtoField.uint8("tavoro.type", "Type", base.DEC, names.types),
    totalCount = ProtoField.uint32("tavoro.total_count", "Packets (totalCount)", base.DEC),
    sendCount = ProtoField.uint32("tavoro.send_count", "Index of this packet (sendCount)", base.DEC),
    code = ProtoField.uint16("tavoro.code", "Command code (BC, FC)", base.HEX, names.codes),
    arg2 = ProtoField.bytes("tavoro.arg2", "Filters (arg2)", base.COLON),
    number = ProtoField.uint32("tavoro.number", "Number", base.DEC),
}

fields.checksum = {
    head = ProtoField.uint8("tavoro.head_checksum.status", "Head checksum status", base.DEC, names.checksumStatuses),
    body = ProtoField.uint8("tavoro.body_checksum.status", "Body checksum status", base.DEC, names.checksumStatuses),
}

fields.link = {
    responseIn = ProtoField.framenum("tavoro.response_in", "Answer in", base.NONE, frametype.RESPONSE),
    responseTo = ProtoField.framenum("tavoro.response_to", "Answer to", base.NONE, frametype.REQUEST),
    time = ProtoField.relative_time("tavoro.time", "Time since the request"),
    previous = ProtoField.framenum("tavoro.previous_packet", "Previous packet in", base.NONE),
    next = ProtoField.framenum("tavoro.next_packet", "Next packet in", base.NONE),
    packet = ProtoField.framenum("tavoro.packet_in", "Packet of the body in", base.NONE),
}

fields.body = {
    content = ProtoField.bytes("tavoro.content", "File content"),
    bytes = ProtoField.bytes("tavoro.body", "Body"),
    invalid = ProtoField.bytes("tavoro.invalid", "Bytes after an invalid head"),
    client = ProtoField.bytes("tavoro.client", "Client"),
    connection = ProtoField.uint32("tavoro.connection", "Connection of the client", base.DEC),
    askedNumber = ProtoField.uint32("tavoro.outcome.number", "Number of the request in question", base.DEC),
    askedIn = ProtoField.framenum("tavoro.outcome.request_in", "Request in question in", base.NONE),
    outcome = ProtoField.uint8("tavoro.outcome.state", "Outcome", base.DEC, names.outcomes),
    outcomeStatus = ProtoField.uint8("tavoro.outcome.status", "Status of the answer", base.DEC, names.statuses),
    controlAction = ProtoField.uint8("tavoro.control.action", "Action", base.DEC, names.controlActions),
    controlState = ProtoField.uint8("tavoro.control.others", "Another client holds control", base.DEC),
    controlHolder = ProtoField.string("tavoro.control.holder", "Holder of control"),
    leaseAction = ProtoField.uint8("tavoro.lease.action", "Action", base.DEC, names.leaseActions),
    leaseSeconds = ProtoField.uint16("tavoro.lease.seconds", "Seconds wanted", base.DEC),
    leaseState = ProtoField.uint8("tavoro.lease.state", "Lease", base.DEC, names.leaseStates),
    leaseTime = ProtoField.uint32("tavoro.lease.milliseconds", "Milliseconds until the lease ends", base.DEC),
    leaseHolder = ProtoField.string("tavoro.lease.holder", "Holder of the lease"),
}

local function newExpert(name, text, group, severity)
    return ProtoExpert.new("tavoro." .. name, text, group, severity)
end

local function malformed(name, text)
    return newExpert(name, text, expert.group.MALFORMED, expert.severity.ERROR)
end

local function wrongChecksum(name, text)
    return newExpert(name, text, expert.group.CHECKSUM, expert.severity.ERROR)
end

local function sequence(name, text, severity)
    return newExpert(name, text, expert.group.SEQUENCE, severity)
end

fields.expert = {
    wrongFlag = malformed("wrong_flag", "The flag is not 54 56"),
    wrongVersion = malformed("wrong_version", "The version is not 1"),
    wrongHead = wrongChecksum("wrong_head_checksum", "Wrong head checksum"),
    longBody = malformed("long_body", "The body is longer than 64 MiB"),
    wrongIndex = malformed("wrong_checksum_index", "Unknown checksum index"),
    wrongBody = wrongChecksum("wrong_body_checksum", "Wrong body checksum"),
    wrongKind = malformed("wrong_kind", "Unknown kind of frame"),
    wrongLength = malformed("wrong_length", "The body does not have the length that this message has"),
    incomplete = malformed("incomplete", "The frame is not complete in this capture"),
    refused = newExpert("refused", "The device refused the request", expert.group.RESPONSE_CODE, expert.severity.WARN),
    differs = malformed("wrong_answer", "Code, type or filters differ from those of the request"),
    wrongPacket = malformed("wrong_packet", "The index of the packet is not less than the number of packets"),
    repeated = sequence("repeated_answer", "The request was answered before", expert.severity.WARN),
    noRequest = sequence("no_request", "The capture does not contain the request", expert.severity.NOTE),
    noAnswer = sequence("no_answer", "The capture does not contain an answer", expert.severity.NOTE),
}

local function valuesOf(...)
    local list = {}
    for _, group in ipairs({ ... }) do
        for _, value in pairs(group) do
            list[#list + 1] = value
        end
    end
    return list
end

fields.proto.fields = valuesOf(fields.head, fields.checksum, fields.link, fields.body)
fields.proto.experts = valuesOf(fields.expert)
fields.proto.prefs.verify_bodies =
    Pref.bool("Verify the checksums of bodies", true, "Takes some milliseconds for each 64 KiB.")

return fields
