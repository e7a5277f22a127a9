-- The head of a frame: its values, its faults, and its lines in the tree.

local checksums = require("tavoro.checksums")
local fields = require("tavoro.fields")
local names = require("tavoro.names")

local head = { size = 40, flagBytes = "\x54\x56" }

local longestBody = 64 * 1024 * 1024
local lastExchangeKind = 3 -- Requests, responses and reports have a code; the other kinds have zeros there.

-- name, position, width, only in exchanges
local layout = {
    { "flag", 0, 2 },
    { "version", 2, 1 },
    { "tag", 3, 1 },
    { "bodyLength", 4, 4 },
    { "status", 8, 1 },
    { "checksumIndex", 9, 1 },
    { "kind", 10, 1 },
    { "headChecksum", 12, 2 },
    { "bodyChecksum", 14, 4 },
    { "stream", 18, 2, true },
    { "type", 20, 1, true },
    { "totalCount", 21, 4, true },
    { "sendCount", 25, 4, true },
    { "code", 29, 2, true },
    { "arg2", 31, 4, true },
    { "number", 36, 4, true },
}

function head.isExchange(values)
    return values.kind <= lastExchangeKind
end

-- The values of the 40 bytes of a range, by the names above.
function head.read(range)
    local bytes = range:raw()
    local values = { computedChecksum = checksums.ofHead(bytes) }
    for _, row in ipairs(layout) do
        local name, position, width = row[1], row[2], row[3]
        values[name] = range(position, width):le_uint()
    end
    values.filters = bytes:sub(32, 35)
    return values
end

-- The expert information about a head after which the end of the frame is unknown; nil for any other head.
function head.fatalFault(values)
    if values.flag ~= 0x5654 then
        return fields.expert.wrongFlag
    elseif values.version ~= 1 then
        return fields.expert.wrongVersion
    elseif values.headChecksum ~= values.computedChecksum then
        return fields.expert.wrongHead
    elseif values.bodyLength > longestBody then
        return fields.expert.longBody
    end
    return nil
end

function head.packetText(values)
    if values.totalCount <= 1 then
        return ""
    end
    return string.format(", packet %.0f of %.0f", values.sendCount + 1, values.totalCount)
end

local function exchangeText(values)
    local text = string.format("%s %s", names.ofCode(values.code), names.ofType(values.type))
    return text .. head.packetText(values)
end

local function responseText(values)
    local outcome = names.statuses[0]
    if values.status ~= 0 then
        outcome = string.format("refused with status %d: %s", values.status, names.ofStatus(values.status))
    end
    return string.format("Response %.0f: %s, %s", values.number, exchangeText(values), outcome)
end

local texts = {
    [1] = function(values) return string.format("Request %.0f: %s", values.number, exchangeText(values)) end,
    [2] = responseText,
    [3] = function(values) return "Report " .. names.ofCode(values.code) end,
    [4] = function() return "Identity request" end,
    [5] = function() return "Identity answer" end,
    [6] = function() return "Ping" end,
    [7] = function() return "Pong" end,
}

-- One line about a frame.
function head.text(values)
    local text = texts[values.kind]
    return text and text(values) or string.format("Frame of kind %d", values.kind)
end

local function addChecksumStatus(tree, values, line)
    local isGood = values.headChecksum == values.computedChecksum
    line:append_text(isGood and " [correct]" or string.format(" [should be 0x%04x]", values.computedChecksum))
    tree:add(fields.checksum.head, isGood and 1 or 0):set_generated()
end

-- Adds the fields of the head to the tree. Returns their lines by name.
function head.addTo(tree, range, values)
    local lines = {}
    for _, row in ipairs(layout) do
        local name, position, width, onlyInExchanges = row[1], row[2], row[3], row[4]
        if not onlyInExchanges or head.isExchange(values) then
            lines[name] = tree:add_le(fields.head[name], range(position, width))
        end
    end
    addChecksumStatus(tree, values, lines.headChecksum)
    return lines
end

return head
