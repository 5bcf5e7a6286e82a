# Writes OUTPUT, a source that defines the bytes of PAGE as catalogue/page.h declares them.
file(READ ${PAGE} bytes HEX)
string(LENGTH "${bytes}" size)
math(EXPR size "${size} / 2")
string(REPEAT "[0-9a-f]" 40 row)
string(REGEX REPLACE "(${row})" "\\1\n" bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
file(WRITE ${OUTPUT} "// Made from docs/MESSAGES.md by catalogue/embed_page.cmake.
#include \"catalogue/page.h\"

namespace velto::catalogue {

const unsigned char kPage[] = {
${bytes}
};
const std::size_t kPageSize = ${size};

}  // namespace velto::catalogue
")
