-- What a frame needs of the packet that carries it: number, time, ends, columns.

local packets = {}

local tcpStream = Field.new("tcp.stream")
local framesPerPacket = 65536 -- more than fit into the longest segment

local function endText(address, port)
    return string.format("%s %s", tostring(address), tostring(port))
end

-- Identifies the connection of a packet in the capture.
function packets.connectionKey(pinfo)
    local stream = tcpStream()
    if stream then
        return stream.value
    end
    local from, to = endText(pinfo.src, pinfo.src_port), endText(pinfo.dst, pinfo.dst_port)
    return from < to and from .. " " .. to or to .. " " .. from
end

-- Identifies the next frame of a packet in the capture. Wireshark may call a dissector several times for one packet.
function packets.frameId(pinfo)
    local count = tonumber(pinfo.private.tavoro_frames or "0") + 1
    pinfo.private.tavoro_frames = tostring(count)
    return pinfo.number * framesPerPacket + count
end

-- The packet of a frame with a body, for the tracker.
function packets.of(pinfo, body)
    return {
        number = pinfo.number,
        time = pinfo.abs_ts,
        from = endText(pinfo.src, pinfo.src_port),
        to = endText(pinfo.dst, pinfo.dst_port),
        isVisited = pinfo.visited,
        body = body or nil,
    }
end

function packets.timeBetween(first, second)
    local seconds = second - first
    local whole = math.floor(seconds)
    return NSTime.new(whole, math.floor((seconds - whole) * 1e6 + 0.5) * 1000)
end

function packets.showColumns(pinfo)
    pinfo.cols.protocol = pinfo.private.tavoro_protocol
    pinfo.cols.info = pinfo.private.tavoro_info
end

-- Adds a text to those of the other frames in the packet. showColumns() shows them again after another dissector, such as
-- that of JSON, has written to the columns.
function packets.addInfo(pinfo, protocol, text)
    local before = pinfo.private.tavoro_info
    pinfo.private.tavoro_protocol = protocol
    pinfo.private.tavoro_info = before and before .. "; " .. text or text
    packets.showColumns(pinfo)
end

return packets
