#pragma once

#include <chrono>

// The faults of a device in six operations.

constexpr int operationCount = 6;

constexpr std::chrono::milliseconds shortTime{250}; ///< Of requests whose answer fails to come.
constexpr std::chrono::milliseconds longTime{10000};

struct FaultRow {
    const char *fault;
    bool isLost; ///< The connection ends.
    std::chrono::milliseconds time;
    const char *cells[operationCount];
    const char *files; ///< What the next request of the synchronisation meets.
};

// A cell is what the caller gets:
//
// - ok; "short" when not all bytes of a content have come
// - a status, or "offline"; with @ when another packet than the one with the fault meets it
// - json: the answer is no record
//
// "|" separates what depends on whether the connection is found closed before or after the next
// packet. Behind a blank stands whether the device has done a write, in spite of everything, and
// how many screens a synchronisation has read before the fault.
// clang-format off
constexpr FaultRow faultRows[] = {
//   fault                  lost   time       read    split read         write         split write   streamed read      synchronisation    its next
    {"status=8",            false, longTime,  {"8",    "8",               "8 undone",   "8 undone",   "8",               "8"},               "ok"},
    {"late=50",             false, longTime,  {"ok",   "ok",              "ok done",    "ok done",    "ok",              "ok"},              "ok"},
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
