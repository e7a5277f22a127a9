-- What the frames of a capture have to do with each other: requests and their answers, the packets of split exchanges, and
-- the requests whose outcome is asked for.
--
-- Wireshark dissects the packets in their order once, and later any of them again. The first time, follow() makes the
-- record of a frame from the state of its connection. Later the record is only looked up, so that the state may be ahead.
--
-- A record:    exchange, isRepeated, split, body (string, of the last packet of a split exchange), askedIn
-- An exchange: request, response (numbers of packets), requestTime, responseTime, head (of the request)
-- A split:     packets (number of the packet by index), bodies (strings by index), total

local names = require("tavoro.names")

local tracker = {}

local fileImport = 0xFA03
local connections, records, clients

function tracker.reset()
    connections, records, clients = {}, {}, {}
end
tracker.reset()

-- The state of a connection. A connection is known from the first packet with a valid head.
function tracker.connection(key)
    connections[key] = connections[key] or { open = {}, answered = {}, splits = {}, requests = {} }
    return connections[key]
end

-- What an answer has in common with its request, and with no other request that waits at the time.
local function exchangeKey(head, asker)
    if head.kind <= 2 then
        return string.format("%.0f %d %d", head.number, head.tag, head.stream)
    end
    return head.kind <= 5 and "identity" or string.format("ping %d %s", head.tag, asker)
end

local function beginExchange(connection, key, head, packet)
    local exchange = { request = packet.number, requestTime = packet.time, head = head }
    connection.open[key] = connection.open[key] or {}
    table.insert(connection.open[key], exchange)
    return { exchange = exchange }
end

local function endExchange(connection, key, packet)
    local waiting = connection.open[key]
    if not waiting or #waiting == 0 then
        return { exchange = connection.answered[key], isRepeated = connection.answered[key] ~= nil }
    end
    local exchange = table.remove(waiting, 1)
    exchange.response, exchange.responseTime = packet.number, packet.time
    connection.answered[key] = exchange
    return { exchange = exchange }
end

local function isBinary(head)
    return head.type >= 3
end

local function isWrite(head)
    return head.type == 2 or head.type == 4
end

-- The packets of a content belong together by the file that they name, those of other exchanges by their stream.
local function splitKey(head)
    if head.type == 4 and head.code == fileImport then
        return "content " .. head.filters
    end
    return head.stream
end

local function wholeBody(split)
    local bodies = {}
    for index = 0, split.total - 1 do
        if not split.bodies[index] then
            return nil
        end
        bodies[index + 1] = split.bodies[index]
    end
    return table.concat(bodies)
end

local function addPacket(record, head, packet)
    local split = record.split
    split.total = head.totalCount
    split.packets[head.sendCount] = packet.number
    if isBinary(head) then
        return
    end
    split.bodies[head.sendCount] = packet.body
    if head.sendCount == head.totalCount - 1 then
        record.body = wholeBody(split)
        split.bodies = {}
    end
end

-- Requests with index 0 begin on their stream again. Writes carry their packets in requests, reads in responses.
local function followSplit(connection, record, head, packet)
    local key = splitKey(head)
    local isRequest = head.kind == 1
    if isRequest and head.sendCount == 0 then
        connection.splits[key] = { packets = {}, bodies = {}, total = 0 }
    end
    local carriesPacket = isRequest == isWrite(head) and head.status == 0
    local isPacket = head.totalCount > 1 and head.sendCount < head.totalCount
    if carriesPacket and isPacket and connection.splits[key] and not record.isRepeated then
        record.split = connection.splits[key]
        addPacket(record, head, packet)
    end
end

-- The last four bytes of a string as a number.
local function lastNumber(bytes)
    local first, second, third, fourth = bytes:byte(-4, -1)
    return first + 256 * (second + 256 * (third + 256 * fourth))
end

local function followRequest(connection, head, packet)
    local record = beginExchange(connection, exchangeKey(head), head, packet)
    connection.requests[head.number] = packet.number
    if head.code == names.outcomeCode and packet.body and #packet.body == 16 then
        local asked = clients[packet.body:sub(1, 12)]
        record.askedIn = asked and asked.requests[lastNumber(packet.body)]
    end
    followSplit(connection, record, head, packet)
    return record
end

local follow = {
    [1] = followRequest,
    [2] = function(connection, head, packet)
        local record = endExchange(connection, exchangeKey(head), packet)
        followSplit(connection, record, head, packet)
        return record
    end,
    [4] = function(connection, head, packet)
        if packet.body and #packet.body == 12 then
            clients[packet.body] = connection
        end
        return beginExchange(connection, exchangeKey(head), head, packet)
    end,
    [5] = function(connection, head, packet) return endExchange(connection, exchangeKey(head), packet) end,
    [6] = function(connection, head, packet)
        return beginExchange(connection, exchangeKey(head, packet.from), head, packet)
    end,
    [7] = function(connection, head, packet)
        return endExchange(connection, exchangeKey(head, packet.to), packet)
    end,
}

-- The record of a frame. id: identifies the frame in the capture. packet: number, time, from and to (ends of the
-- connection) of the packet, and body of the frame as a string, or nil if it is incomplete.
function tracker.follow(id, connection, head, packet)
    if not packet.isVisited and not records[id] then
        records[id] = follow[head.kind] and follow[head.kind](connection, head, packet) or {}
    end
    return records[id] or {}
end

return tracker
