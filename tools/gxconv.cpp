// gxconv: the library's command-line program.
//
//   gxconv                       runs the built-in example
//   gxconv --wkt TEXT|@FILE      reads a definition, reports every message,
//                                prints it back as WKT (one line) and indented
//
// Every message the library records reaches standard error through the
// message hook as "severity code function: message".
#include <cctype>
#include <cstdio>
#include <cstring>
#include <string>

#include "orvamobilegx.h"

namespace {

const char* severity_name(uint32_t severity) {
  return severity == GX_SEV_WARNING ? "warning" : severity == GX_SEV_ERROR ? "error" : "note";
}

int print_message(void*, const gx_errext* record) {
  std::fprintf(stderr, "%s %u %s: %s\n", severity_name(record->severity), record->code,
               record->function, record->message);
  return 0;
}

// An argument that starts with '@' names a file whose text is the value.
bool read_argument(const char* argument, std::string& text) {
  if (argument[0] != '@') {
    text = argument;
    return true;
  }
  FILE* file = std::fopen(argument + 1, "rb");
  if (file == nullptr) {
    std::fprintf(stderr, "gxconv: cannot open %s\n", argument + 1);
    return false;
  }
  char chunk[4096];
  size_t got;
  text.clear();
  while ((got = std::fread(chunk, 1, sizeof chunk, file)) > 0) text.append(chunk, got);
  std::fclose(file);
  return true;
}

// One clause a line, nested clauses indented by two blanks.
void print_indented(const char* wkt) {
  int depth = 0;
  bool quoted = false;
  for (const char* p = wkt; *p != '\0'; ++p) {
    char c = *p;
    if (c == '"') quoted = !quoted;
    if (!quoted && c == ',' && std::isalpha(static_cast<unsigned char>(p[1]))) {
      std::printf(",\n%*s", 2 * depth, "");
      continue;
    }
    if (!quoted && c == '[') ++depth;
    if (!quoted && c == ']') --depth;
    std::putchar(c);
  }
  std::putchar('\n');
}

int show_wkt(const char* text) {
  void* obj = gx_object_from_string(text);
  if (obj == nullptr) {
    std::fprintf(stderr, "gxconv: the definition does not read\n");
    return 1;
  }
  char wkt[GX_WKT_SIZE];
  std::printf("%s: %s\n", gx_type_to_name(gx_object_type(obj)),
              gx_object_to_string_ext(obj, GX_WKT_ALL_AUTHORITY, wkt));
  print_indented(wkt);
  gx_object_del(obj);
  return 0;
}

constexpr const char* kExample =
    "UNIT[\"Foot_US\",0.3048006096012192,AUTHORITY[\"EPSG\",9003]";

void usage() {
  std::fprintf(stderr,
               "usage: gxconv                    run the built-in example\n"
               "       gxconv --wkt TEXT|@FILE   read, check and print a definition\n");
}

}  // namespace

int main(int argc, char** argv) {
  gx_msg_setrtn(nullptr, GX_SEV_ERROR | GX_SEV_WARNING, 0xFF, print_message);
  std::printf("%s\n", gx_version());
  if (argc == 1) {
    std::printf("example: %s\n", kExample);
    return show_wkt(kExample);
  }
  if (argc == 3 && std::strcmp(argv[1], "--wkt") == 0) {
    std::string text;
    if (!read_argument(argv[2], text)) return 2;
    return show_wkt(text.c_str());
  }
  usage();
  return 2;
}
