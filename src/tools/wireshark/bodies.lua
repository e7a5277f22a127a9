-- The body of a frame in the tree: JSON, the content of a file, or the bytes of a request that concerns the connection.

local fields = require("tavoro.fields")
local names = require("tavoro.names")

local bodies = {}

local json = Dissector.get("json")

local function looksLikeJson(range)
    local first = range(0, 1):string()
    return first == "{" or first == "["
end

local function addJson(range, frame)
    json:call(range:tvb(), frame.pinfo, frame.tree)
end

local function addBytes(range, frame)
    frame.tree:add(fields.body.bytes, range)
end

local function addJsonOrBytes(range, frame)
    local add = looksLikeJson(range) and addJson or addBytes
    add(range, frame)
end

local function addContent(range, frame)
    frame.tree:add(fields.body.content, range)
end

-- Reports the body if it does not have the given length.
local function hasLength(range, length, frame)
    if range:len() == length then
        return true
    end
    addBytes(range, frame)
    frame.tree:add_proto_expert_info(fields.expert.wrongLength)
    return false
end

local function addConnectionId(range, frame)
    frame.tree:add(fields.body.client, range(0, 8))
    frame.tree:add_le(fields.body.connection, range(8, 4))
end

local function addIdentityRequest(range, frame)
    if hasLength(range, 12, frame) then
        addConnectionId(range, frame)
    end
end

local function addOutcomeRequest(range, frame)
    if not hasLength(range, 16, frame) then
        return
    end
    addConnectionId(range, frame)
    frame.tree:add_le(fields.body.askedNumber, range(12, 4))
    if frame.record.askedIn then
        frame.tree:add(fields.body.askedIn, frame.record.askedIn):set_generated()
    end
end

local function addOutcome(range, frame)
    if hasLength(range, 2, frame) then
        frame.tree:add(fields.body.outcome, range(0, 1))
        frame.tree:add(fields.body.outcomeStatus, range(1, 1))
    end
end

local function addHolder(range, frame)
    frame.tree:add(fields.body.controlHolder, range)
end

local function hasLengthFrom(range, length, frame)
    return range:len() >= length or hasLength(range, length, frame)
end

local function addLeaseHolder(range, position, frame)
    if range:len() > position then
        frame.tree:add(fields.body.leaseHolder, range(position))
    end
end

local function addLeaseRequest(range, frame)
    if hasLengthFrom(range, 3, frame) then
        frame.tree:add_le(fields.body.leaseSeconds, range(0, 2))
        addLeaseHolder(range, 2, frame)
    end
end

local function addLease(range, frame)
    if hasLengthFrom(range, 5, frame) then
        frame.tree:add(fields.body.leaseState, range(0, 1))
        frame.tree:add_le(fields.body.leaseTime, range(1, 4))
        addLeaseHolder(range, 5, frame)
    end
end

-- By code and kind: the bodies that are not records.
local linkBodies = {
    [names.outcomeCode] = { [1] = addOutcomeRequest, [2] = addOutcome },
    [names.controlCode] = { [2] = addHolder, [3] = addHolder },
    [names.leaseCode] = { [1] = addLeaseRequest, [2] = addLease },
}

local function isPartOfJson(frame)
    return frame.head.totalCount > 1
end

local function addExchangeBody(range, frame)
    local link = linkBodies[frame.head.code]
    if link and link[frame.head.kind] then
        link[frame.head.kind](range, frame)
    elseif frame.head.type >= 3 then
        addContent(range, frame)
    elseif isPartOfJson(frame) then
        addBytes(range, frame)
    else
        addJsonOrBytes(range, frame)
    end
end

local byKind = {
    [1] = addExchangeBody,
    [2] = addExchangeBody,
    [3] = addExchangeBody,
    [4] = addIdentityRequest,
    [5] = addJsonOrBytes,
}

-- The meaning of the first byte of the filters in requests and reports of control and of the lease.
function bodies.addAction(range, frame)
    local code = frame.head.kind <= 3 and frame.head.code
    local isWrite = frame.head.type == 2
    if code == names.controlCode and frame.head.kind == 3 then
        frame.tree:add(fields.body.controlState, range)
    elseif code == names.controlCode and isWrite then
        frame.tree:add(fields.body.controlAction, range)
    elseif code == names.leaseCode and isWrite then
        frame.tree:add(fields.body.leaseAction, range)
    end
end

-- Adds a body that is complete and not empty.
function bodies.add(range, frame)
    local add = byKind[frame.head.kind] or addBytes
    add(range, frame)
end

-- Adds a part of a body whose rest the capture does not contain.
bodies.addPart = addBytes

-- Adds the body that the packets of a split exchange make up.
function bodies.addReassembled(body, frame)
    local tvb = ByteArray.new(body, true):tvb("Reassembled body")
    local split = frame.record.split
    for index = 0, split.total - 1 do
        frame.tree:add(fields.link.packet, split.packets[index]):set_generated()
    end
    if #body > 0 then
        addJsonOrBytes(tvb:range(), frame)
    end
end

return bodies
