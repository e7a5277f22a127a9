#pragma once

#include <chrono>

// The effect of each fault of a device on six operations.

constexpr int operationCount = 6;

constexpr std::chrono::milliseconds shortTime{
    250}; ///< Request time of faults that suppress the answer.
constexpr std::chrono::milliseconds longTime{10000};

struct FaultRow {
    const char *fault;
    bool isLost; ///< The connection ends.
    std::chrono::milliseconds time;
    const char *cells[operationCount];
    const char
        *files; ///< What the next request after the synchronisation gets: the read of the files.
};

// A cell is what the caller gets:
//
// - "ok"; or "short" if the content that arrived is incomplete
// - a status, or "offline"; "@2/3" follows if packet 2 of 3 gets it instead of the faulty packet
// - "json": the answer is not a valid record
//
// "|" separates alternatives: the client may notice the closed connection before or after it sends
// the next packet. After a space: whether the device has carried out a write ("done", "undone"), or
// how many screens a synchronisation has read before the fault.
// clang-format off
constexpr FaultRow faultRows[] = {
//   fault                  lost   time       read    split read         write         split write   streamed read      synchronisation    its next
    {"status=8",            false, longTime,  {"8",    "8",               "8 undone",   "8 undone",   "8",               "8"},               "ok"},
    {"late=50",             false, longTime,  {"ok",   "ok",              "ok done",    "ok done",    "ok",              "ok"},              "ok"},
    {"hold",                false, shortTime, {"260",  "260",             "260 done",   "260 done",   "260",             "260"},             "ok"},
    {"silent",              false, shortTime, {"260",  "260",             "260 done",   "260 done",   "260",             "260"},             "ok"},
    {"ignore",              false, shortTime, {"260",  "260",             "260 undone", "260 undone", "260",             "260"},             "ok"},
    {"stall",               true,  shortTime, {"260",  "365",             "260 done",   "260 done",   "365",             "365"},             "offline"},
    {"drop-request",        true,  longTime,  {"259",  "259",             "259 undone", "259 undone", "259",             "259"},             "offline"},
    {"drop-before",         true,  longTime,  {"259",  "259",             "259 done",   "259 done",   "259",             "259"},             "offline"},
    {"drop-within",         true,  longTime,  {"259",  "358",             "259 done",   "259 done",   "358",             "358"},             "offline"},
    {"drop-after",          true,  longTime,  {"ok",   "259@2/3|offline", "ok done",    "ok done",    "259@2/3|offline", "259@1/9|offline"}, "offline"},
    {"wrong-flag",          true,  longTime,  {"359",  "359",             "359 done",   "359 done",   "359",             "359"},             "offline"},
    {"wrong-version",       true,  longTime,  {"359",  "359",             "359 done",   "359 done",   "359",             "359"},             "offline"},
    {"wrong-head-checksum", true,  longTime,  {"361",  "361",             "361 done",   "361 done",   "361",             "361"},             "offline"},
    {"wrong-length",        true,  longTime,  {"363",  "363",             "363 done",   "363 done",   "363",             "363"},             "offline"},
    {"wrong-length=1",      true,  shortTime, {"365",  "365",             "365 done",   "365 done",   "365",             "365"},             "offline"},
    {"wrong-index",         false, longTime,  {"360",  "360",             "360 done",   "360 done",   "360",             "360"},             "ok"},
    {"wrong-checksum",      false, longTime,  {"361",  "361",             "361 done",   "361 done",   "361",             "361"},             "ok"},
    {"wrong-kind",          false, longTime,  {"362",  "362",             "362 done",   "362 done",   "362",             "362"},             "ok"},
    {"wrong-type",          false, longTime,  {"362",  "362",             "362 done",   "362 done",   "362",             "362"},             "ok"},
    {"wrong-code",          false, longTime,  {"357",  "357",             "357 done",   "357 done",   "357",             "357"},             "ok"},
    {"wrong-tag",           false, shortTime, {"260",  "260",             "260 done",   "260 done",   "260",             "260"},             "ok"},
    {"wrong-stream",        false, shortTime, {"260",  "260",             "260 done",   "260 done",   "260",             "260"},             "ok"},
    {"packets",             false, longTime,  {"363",  "363",             "363 done",   "363 done",   "363",             "363"},             "ok"},
    {"swap-packets",        false, longTime,  {"ok",   "363",             "ok done",    "ok done",    "363",             "363"},             "ok"},
    {"twice",               false, longTime,  {"ok",   "ok",              "ok done",    "ok done",    "ok",              "ok"},              "ok"},
    {"truncate",            false, longTime,  {"json", "json",            "ok done",    "ok done",    "short",           "json 1"},          "ok"},
    {"garble=100000",       false, longTime,  {"json", "json",            "ok done",    "ok done",    "ok",              "json"},            "ok"},
    {"stop-reading",        false, shortTime, {"260",  "260",             "260 undone", "260 undone", "260",             "260"},             "260"},
    {"reboot",              true,  longTime,  {"259",  "259",             "259 undone", "259 undone", "259",             "259"},             "offline"},
    {"flood=2000",          false, longTime,  {"ok",   "ok",              "ok done",    "ok done",    "ok",              "ok"},              "ok"},
};
// clang-format on
