-- Discovery: datagrams of a text, and in answers the identity of the device as JSON.

local packets = require("tavoro.packets")

local discovery = { port = 6631 }

local requestText = "reqKELVORIN:"
local answerText = "rspKELVORIN:"
local textLength = #requestText

local kinds = { [requestText] = "Discovery request", [answerText] = "Discovery answer" }

local proto = Proto("tavoro_discovery", "Tavoro Device Discovery")
local fields = {
    text = ProtoField.string("tavoro_discovery.text", "Text"),
    rest = ProtoField.bytes("tavoro_discovery.rest", "Bytes for later versions"),
    answerIn = ProtoField.framenum("tavoro_discovery.answer_in", "Answer in", base.NONE, frametype.RESPONSE),
    answerTo = ProtoField.framenum("tavoro_discovery.answer_to", "Answer to", base.NONE, frametype.REQUEST),
    time = ProtoField.relative_time("tavoro_discovery.time", "Time since the request"),
}
proto.fields = { fields.text, fields.rest, fields.answerIn, fields.answerTo, fields.time }
local noIdentity = ProtoExpert.new("tavoro_discovery.no_identity", "The answer does not contain an identity",
    expert.group.MALFORMED, expert.severity.ERROR)
proto.experts = { noIdentity }

local json = Dissector.get("json")
local requests, latest -- by number of the packet; the latest one by the address of the client

function proto.init()
    requests, latest = {}, {}
end

local function followRequest(pinfo, client)
    if not pinfo.visited then
        requests[pinfo.number] = { number = pinfo.number, time = pinfo.abs_ts, answers = {} }
        latest[client] = requests[pinfo.number]
    end
    return requests[pinfo.number]
end

-- The request that a packet answers. Several devices may answer a request.
local function followAnswer(pinfo, client)
    local request = latest[client]
    if not pinfo.visited and request then
        requests[pinfo.number] = request
        table.insert(request.answers, pinfo.number)
    end
    return requests[pinfo.number]
end

local function addRequest(rest, pinfo, tree)
    local request = followRequest(pinfo, packets.of(pinfo).from)
    for _, answer in ipairs(request and request.answers or {}) do
        tree:add(fields.answerIn, answer):set_generated()
    end
    if rest then
        tree:add(fields.rest, rest)
    end
end

local function addAnswer(rest, pinfo, tree)
    local request = followAnswer(pinfo, packets.of(pinfo).to)
    if request then
        tree:add(fields.answerTo, request.number):set_generated()
        tree:add(fields.time, packets.timeBetween(request.time, pinfo.abs_ts)):set_generated()
    end
    if rest and rest(0, 1):string() == "{" then
        json:call(rest:tvb(), pinfo, tree)
    else
        tree:add_proto_expert_info(noIdentity)
    end
end

local function textOf(tvb)
    return tvb:len() >= textLength and tvb:range(0, textLength):raw() or ""
end

function proto.dissector(tvb, pinfo, root)
    local text = textOf(tvb)
    if not kinds[text] then
        return 0
    end
    local tree = root:add(proto, tvb:range())
    tree:append_text(", " .. kinds[text])
    packets.addInfo(pinfo, "Tavoro", kinds[text])
    tree:add(fields.text, tvb:range(0, textLength))
    local rest = tvb:len() > textLength and tvb:range(textLength) or nil
    local add = text == requestText and addRequest or addAnswer
    add(rest, pinfo, tree)
    packets.showColumns(pinfo)
    return tvb:len()
end

-- The text at the beginning is long enough to recognise the datagrams on any port.
local function recognise(tvb, pinfo, root)
    return kinds[textOf(tvb)] ~= nil and proto.dissector(tvb, pinfo, root) > 0
end

function discovery.register()
    DissectorTable.get("udp.port"):add(discovery.port, proto)
    proto:register_heuristic("udp", recognise)
end

return discovery
