-- A connection over TCP: cuts the segments into frames.

local fields = require("tavoro.fields")
local frames = require("tavoro.frames")
local heads = require("tavoro.head")
local packets = require("tavoro.packets")
local tracker = require("tavoro.tracker")

local stream = { port = 6630 }
local proto = fields.proto

local function hasFlag(tvb, offset)
    local length = math.min(tvb:len() - offset, #heads.flagBytes)
    return tvb:range(offset, length):raw() == heads.flagBytes:sub(1, length)
end

-- Asks for further segments, if Wireshark can join them. Returns false otherwise, for example if the capture contains only
-- the first bytes of each packet.
local function askForMore(tvb, offset, pinfo, missing)
    if pinfo.can_desegment == 0 then
        return false
    end
    pinfo.desegment_offset = offset
    pinfo.desegment_len = missing or DESEGMENT_ONE_MORE_SEGMENT
    return true
end

-- Each of these returns the offset after what it has dissected; nil at the end of the segment.

local function addShortHead(tvb, offset, pinfo, root)
    if not hasFlag(tvb, offset) then
        frames.addInvalid(tvb, offset, nil, fields.expert.wrongFlag, pinfo, root)
    elseif not askForMore(tvb, offset, pinfo) then
        frames.addInvalid(tvb, offset, nil, fields.expert.incomplete, pinfo, root)
    end
    return nil
end

local function addFrame(tvb, offset, pinfo, root)
    local available = tvb:len() - offset
    if available < heads.size then
        return addShortHead(tvb, offset, pinfo, root)
    end
    local head = heads.read(tvb:range(offset, heads.size))
    local fault = heads.fatalFault(head)
    if fault then
        frames.addInvalid(tvb, offset, head, fault, pinfo, root)
        return nil
    end
    local missing = heads.size + head.bodyLength - available
    if missing > 0 and askForMore(tvb, offset, pinfo, missing) then
        return nil
    end
    local connection = tracker.connection(packets.connectionKey(pinfo))
    connection.knownSince = connection.knownSince or pinfo.number
    return offset + frames.add(tvb, offset, head, connection, pinfo, root)
end

-- True from the first valid frame of the connection. Without one, other bytes may be those of another protocol.
local function isKnown(pinfo)
    local knownSince = tracker.connection(packets.connectionKey(pinfo)).knownSince
    return knownSince ~= nil and knownSince <= pinfo.number
end

function proto.dissector(tvb, pinfo, root)
    if not hasFlag(tvb, 0) and not isKnown(pinfo) then
        return 0
    end
    local offset = 0
    while offset and offset < tvb:len() do
        offset = addFrame(tvb, offset, pinfo, root)
    end
    return tvb:len()
end

-- Recognises a connection on any port by a head with the right checksum.
local function recognise(tvb, pinfo, root)
    if tvb:len() < heads.size or not hasFlag(tvb, 0) or heads.fatalFault(heads.read(tvb:range(0, heads.size))) then
        return false
    end
    pinfo.conversation = proto
    proto.dissector(tvb, pinfo, root)
    return true
end

function proto.init()
    tracker.reset()
end

function stream.register()
    DissectorTable.get("tcp.port"):add(stream.port, proto)
    proto:register_heuristic("tcp", recognise)
end

return stream
