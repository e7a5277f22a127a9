// codec.h declares two functions and nothing of what they are built from: these names are free
// after it. The file does not compile when codec.h includes the tokeniser or the writer.

#include <tavorocontrol/proto/codec.h>

namespace ajson {

enum class FieldList;
enum class JsonReader;
enum class JsonToken;
enum class JsonWriter;
enum class exception;

} // namespace ajson
