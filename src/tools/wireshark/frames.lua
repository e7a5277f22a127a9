-- One frame: its head, its body, and its links to other frames.

local bodies = require("tavoro.bodies")
local checksums = require("tavoro.checksums")
local fields = require("tavoro.fields")
local heads = require("tavoro.head")
local names = require("tavoro.names")
local packets = require("tavoro.packets")
local tracker = require("tavoro.tracker")

local frames = {}

local function addExpert(frame, expert, line)
    (line or frame.tree):add_proto_expert_info(expert)
end

local function addGenerated(frame, field, value)
    if value then
        frame.tree:add(field, value):set_generated()
    end
end

local function checkBodyChecksum(frame, bytes, lines)
    local computed = checksums.ofBody(frame.head.checksumIndex, bytes)
    if not computed then
        return 2
    elseif computed == frame.head.bodyChecksum then
        lines.bodyChecksum:append_text(" [correct]")
        return 1
    end
    lines.bodyChecksum:append_text(string.format(" [should be 0x%08x]", computed))
    addExpert(frame, fields.expert.wrongBody, lines.bodyChecksum)
    return 0
end

local function addBodyChecksumStatus(frame, bytes, lines)
    local isWanted = bytes and fields.proto.prefs.verify_bodies
    addGenerated(frame, fields.checksum.body, isWanted and checkBodyChecksum(frame, bytes, lines) or 2)
end

-- The faults of a head after which the frame is skipped, and those of an answer.
local function addHeadFaults(frame, lines)
    local head = frame.head
    if not names.checksumIndexes[head.checksumIndex] then
        addExpert(frame, fields.expert.wrongIndex, lines.checksumIndex)
    end
    if not names.kinds[head.kind] then
        addExpert(frame, fields.expert.wrongKind, lines.kind)
    end
    if head.kind == 2 and head.status ~= 0 then
        addExpert(frame, fields.expert.refused, lines.status)
    end
    if heads.isExchange(head) and head.sendCount >= math.max(head.totalCount, 1) then
        addExpert(frame, fields.expert.wrongPacket, lines.sendCount)
    end
end

local function addRequestLinks(frame)
    local exchange = frame.record.exchange
    addGenerated(frame, fields.link.responseIn, exchange.response)
    if not exchange.response and frame.pinfo.visited then
        addExpert(frame, fields.expert.noAnswer)
    end
end

local function isAnswerTo(request, head)
    return request.code == head.code and request.type == head.type and request.filters == head.filters
end

local function addAnswerLinks(frame)
    local exchange = frame.record.exchange
    if not exchange then
        addExpert(frame, fields.expert.noRequest)
        return
    end
    addGenerated(frame, fields.link.responseTo, exchange.request)
    addGenerated(frame, fields.link.time, packets.timeBetween(exchange.requestTime, frame.pinfo.abs_ts))
    if frame.record.isRepeated then
        addExpert(frame, fields.expert.repeated)
    end
    if frame.head.kind == 2 and not isAnswerTo(exchange.head, frame.head) then
        addExpert(frame, fields.expert.differs)
    end
end

local links = {
    [1] = addRequestLinks,
    [2] = addAnswerLinks,
    [4] = addRequestLinks,
    [5] = addAnswerLinks,
    [6] = addRequestLinks,
    [7] = addAnswerLinks,
}

local function addSplitLinks(frame)
    local split = frame.record.split
    if split then
        addGenerated(frame, fields.link.previous, split.packets[frame.head.sendCount - 1])
        addGenerated(frame, fields.link.next, split.packets[frame.head.sendCount + 1])
    end
end

local function addLinks(frame)
    local add = links[frame.head.kind]
    if add and frame.record then
        add(frame)
    end
    addSplitLinks(frame)
end

local function addBody(frame, range, isComplete)
    if not isComplete then
        addExpert(frame, fields.expert.incomplete)
    end
    if range then
        local add = isComplete and bodies.add or bodies.addPart
        add(range, frame)
    end
    if frame.record.body then
        bodies.addReassembled(frame.record.body, frame)
    end
end

-- A range of bytes; nil if it is empty, which Wireshark does not allow.
local function rangeOf(tvb, offset, length)
    return length > 0 and tvb:range(offset, length) or nil
end

local function begin(tvb, offset, length, pinfo, root)
    local range = tvb:range(offset, length)
    local tree = root:add(fields.proto, range)
    return { pinfo = pinfo, tree = tree, record = {} }
end

local function setText(frame, text)
    frame.tree:append_text(", " .. text)
    packets.addInfo(frame.pinfo, "Tavoro", text)
end

-- The bytes of which no frame can be made: from an invalid head, or less than a head.
function frames.addInvalid(tvb, offset, head, expert, pinfo, root)
    local length = tvb:len() - offset
    local frame = begin(tvb, offset, length, pinfo, root)
    setText(frame, "Invalid frame")
    local lines = {}
    local bodyOffset = offset
    if head then
        lines = heads.addTo(frame.tree, tvb:range(offset, heads.size), head)
        bodyOffset = offset + heads.size
    end
    local rest = rangeOf(tvb, bodyOffset, tvb:len() - bodyOffset)
    if rest then
        frame.tree:add(fields.body.invalid, rest)
    end
    addExpert(frame, expert)
end

-- A frame with a valid head, of which the capture may contain only a part of the body.
function frames.add(tvb, offset, head, connection, pinfo, root)
    local bodyOffset = offset + heads.size
    local available = math.min(head.bodyLength, tvb:len() - bodyOffset)
    local isComplete = available == head.bodyLength
    local body = rangeOf(tvb, bodyOffset, available)
    local bytes = body and body:raw() or ""
    local frame = begin(tvb, offset, heads.size + available, pinfo, root)
    frame.head = head
    frame.record = tracker.follow(packets.frameId(pinfo), connection, head, packets.of(pinfo, isComplete and bytes))
    setText(frame, heads.text(head))
    local lines = heads.addTo(frame.tree, tvb:range(offset, heads.size), head)
    addBodyChecksumStatus(frame, isComplete and bytes, lines)
    addHeadFaults(frame, lines)
    addLinks(frame)
    bodies.addAction(tvb:range(offset + 31, 1), frame)
    addBody(frame, body, isComplete)
    packets.showColumns(pinfo)
    return heads.size + available
end

return frames
