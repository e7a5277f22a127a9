// codec.h declares two functions only, so these names are free after it. This file does not compile
// if codec.h includes the tokeniser or the writer.

#include <tavorocontrol/proto/codec.h>

namespace ajson {

enum class FieldList;
enum class JsonReader;
enum class JsonToken;
enum class JsonWriter;
enum class exception;

} // namespace ajson
