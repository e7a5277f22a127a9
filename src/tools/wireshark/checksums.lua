-- The checksums of heads and bodies. The operators of Lua 5.3 do not exist in the Lua 5.2 of older Wireshark versions.

local band, bxor, rshift = bit.band, bit.bxor, bit.rshift

local checksums = {}

local function reflectedTable(polynomial)
    local entries = {}
    for index = 0, 255 do
        local entry = index
        for _ = 1, 8 do
            local isOdd = band(entry, 1) == 1
            entry = rshift(entry, 1)
            if isOdd then
                entry = bxor(entry, polynomial)
            end
        end
        entries[index] = entry
    end
    return entries
end

local crc16Table = reflectedTable(0x8408)
local crc32Table = reflectedTable(0xEDB88320)

local function crc(entries, initial, bytes)
    local value = initial
    for i = 1, #bytes do
        value = bxor(rshift(value, 8), entries[band(bxor(value, bytes:byte(i)), 0xFF)])
    end
    return bxor(value, initial)
end

-- CRC-16/IBM-SDLC of a string.
function checksums.crc16(bytes)
    return crc(crc16Table, 0xFFFF, bytes)
end

-- CRC-32 of zlib of a string. The library "bit" returns signed numbers.
function checksums.crc32(bytes)
    return crc(crc32Table, 0xFFFFFFFF, bytes) % 0x100000000
end

-- The checksum of the 40 bytes of a head, which is computed with 0 for itself.
function checksums.ofHead(bytes)
    return checksums.crc16(bytes:sub(1, 12) .. "\0\0" .. bytes:sub(15, 40))
end

-- The checksum of a body by the index of its head; nil if the index is unknown.
function checksums.ofBody(index, bytes)
    if index == 0 then
        return 0
    end
    return index == 1 and checksums.crc32(bytes) or nil
end

return checksums
