// The WKT scanner: a normalising pass into the block's text, then a
// tokenising pass; and the walk shared by every family's from_tokens.
#include "frame/wkt.h"

#include <cctype>
#include <cstdarg>
#include <cstring>

#include "frame/diagnostics.h"
#include "frame/object.h"
#include "frame/text.h"

namespace {

bool is_space(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }
bool is_letter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }

// Records a scan failure or warning in the block, worded by the message table.
int scan_message(gx_wkt_tokens* block, uint32_t code, ...) {
  va_list args;
  va_start(args, code);
  block->severity = gx_message_vformat(block->message, sizeof block->message, code, 0, args);
  va_end(args);
  block->code = code;
  return block->severity == GX_SEV_WARNING ? 0 : -1;
}

// Copies the first object of `p` into the block's text: white space outside
// quotes dropped, parentheses turned into brackets, white space inside quotes
// folded to blanks and trimmed at both ends of a quoted value.
int normalise(gx_wkt_tokens* block, const char* p) {
  const int limit = GX_WKT_SIZE - 1;
  int length = 0;
  int depth = 0;
  bool quoted = false;
  char* out = block->text;
  for (; *p != '\0'; ++p) {
    if (length >= limit)
      return scan_message(block, 467, limit);
    char c = *p;
    if (c == '"') {
      if (!quoted) {
        out[length++] = c;
        quoted = true;
        while (is_space(p[1])) ++p;
        continue;
      }
      while (length > 0 && out[length - 1] == ' ') --length;
      out[length++] = c;
      quoted = false;
      while (is_space(p[1])) ++p;
      if (p[1] != ',' && p[1] != ']') {
        return scan_message(block, 458);
      }
      continue;
    }
    if (quoted) {
      out[length++] = is_space(c) ? ' ' : c;
      continue;
    }
    if (is_space(c)) continue;
    if (c == '(') c = '[';
    if (c == ')') c = ']';
    if (length > 0 && out[length - 1] == ']' && c != ']' && c != ',') {
      return scan_message(block, 458);
    }
    if (c == '[') {
      ++depth;
    } else if (c == ']') {
      if (depth == 0) break;
      --depth;
      if (depth == 0) {
        out[length++] = c;
        break;
      }
    }
    out[length++] = c;
  }
  out[length] = '\0';
  if (quoted) return scan_message(block, 469);
  if (depth > 0) scan_message(block, 464, depth, depth != 1 ? "s" : "");
  return 0;
}

// Isolates the next token at *cursor; returns the separator that ended it
// ('[', ']', ',' or 0 at the end of the text).
char wkt_next(char** cursor, char** value) {
  char* c = *cursor;
  if (*c == '"') {
    *value = c + 1;
    char* close = c + 1;
    while (*close != '"' && *close != '\0') ++close;
    if (*close == '\0') {
      *cursor = close;
      return '\0';
    }
    *close = '\0';
    char separator = close[1];
    *cursor = separator != '\0' ? close + 2 : close + 1;
    return separator;
  }
  *value = c;
  while (*c != '\0' && *c != '[' && *c != ']' && *c != ',') ++c;
  char separator = *c;
  if (separator != '\0') {
    *c = '\0';
    ++c;
  }
  *cursor = c;
  return separator;
}

int add_token(gx_wkt_tokens* block, char* value, int32_t level) {
  if (block->count >= GX_WKT_MAX_TOKENS)
    return scan_message(block, 468, GX_WKT_MAX_TOKENS);
  block->tokens[block->count].value = value;
  block->tokens[block->count].level = level;
  ++block->count;
  return 0;
}

int tokenise(gx_wkt_tokens* block) {
  char* cursor = block->text;
  int32_t level = 0;
  char former = '\0';
  block->count = 0;
  for (;;) {
    char* value = nullptr;
    char separator = wkt_next(&cursor, &value);
    int r = 0;
    if (separator == '[') {
      r = add_token(block, value, level);
      ++level;
    } else if (separator == ',') {
      if (!(value[0] == '\0' && former == ']')) r = add_token(block, value, level);
    } else {
      if (value[0] != '\0') r = add_token(block, value, level);
      --level;
    }
    if (r != 0) return r;
    former = separator;
    if (level <= 0 || separator == '\0') return 0;
  }
}

}  // namespace

int gx_wkt_scan(gx_wkt_tokens* block, const char* text, const char* keyword) {
  block->count = 0;
  block->severity = 0;
  block->code = 0;
  block->message[0] = '\0';
  block->text[0] = '\0';
  const char* p = text;
  if (keyword != nullptr && keyword[0] != '\0') {
    p = gx_name_search(text, keyword);
    if (p == nullptr) {
      return scan_message(block, 466, keyword);
    }
  }
  while (is_space(*p)) ++p;
  if (*p == '\0') {
    scan_message(block, 457);
    return -1;
  }
  if (!is_letter(*p)) {
    return scan_message(block, 463);
  }
  if (normalise(block, p) != 0) return -1;
  return tokenise(block);
}

// ---- the walk ---------------------------------------------------------------

int32_t gx_wkt_skip(const gx_wkt_tokens* block, int32_t index, int32_t end) {
  int32_t level = block->tokens[index].level;
  int32_t j = index + 1;
  while (j < end && block->tokens[j].level > level) ++j;
  return j;
}

bool gx_wkt_walk_begin(gx_wkt_walk* walk, gx_wkt_tokens* block, int32_t start, int32_t* next,
                       gx_errext* record, const char* keyword, const char* alias,
                       int32_t min_tokens, const char* function, unsigned alt_wordings) {
  walk->record = gx_errext_begin(record, &walk->local);
  walk->caller_record = record != nullptr;
  walk->block = block;
  walk->function = function;
  walk->failed = false;
  walk->stopped = false;
  walk->name = "";
  for (void*& part : walk->parts) part = nullptr;
  if (start < 0 || start >= block->count) {
    ((alt_wordings & GX_WKT_ALT_462) ? gx_report_alt : gx_report)(walk->record, 462, function,
                                                                  start);
    return false;
  }
  walk->start = start;
  walk->level = block->tokens[start].level;
  int32_t end = start + 1;
  while (end < block->count && block->tokens[end].level > walk->level) ++end;
  walk->end = end;
  if (next != nullptr) *next = end;
  if (end - start < min_tokens) {
    ((alt_wordings & GX_WKT_ALT_459) ? gx_report_alt : gx_report)(walk->record, 459, function);
    return false;
  }
  const char* word = block->tokens[start].value;
  if (gx_name_compare(word, keyword) != 0 &&
      (alias == nullptr || gx_name_compare(word, alias) != 0)) {
    gx_report(walk->record, 466, function, keyword);
    return false;
  }
  if (start + 1 >= end || block->tokens[start + 1].level > walk->level + 1) {
    gx_report(walk->record, 465, function);
    return false;
  }
  walk->name = block->tokens[start + 1].value;
  return true;
}

const char* gx_wkt_walk_value(const gx_wkt_walk* walk, int32_t index) {
  if (index >= walk->end) return nullptr;
  const gx_wkt_token& token = walk->block->tokens[index];
  return token.level > walk->level + 1 ? nullptr : token.value;
}

void gx_wkt_walk_fail(gx_wkt_walk* walk) {
  walk->failed = true;
  if (walk->caller_record) walk->stopped = true;
}

namespace {

const gx_wkt_clause* find_clause(const char* word, const gx_wkt_clause* clauses, int count) {
  for (int k = 0; k < count; ++k) {
    if (gx_name_compare(word, clauses[k].keyword) == 0) return &clauses[k];
    if (clauses[k].alias != nullptr && gx_name_compare(word, clauses[k].alias) == 0)
      return &clauses[k];
  }
  return nullptr;
}

// Hands one clause to its parser; a second occurrence is a duplicate.
bool take_clause(gx_wkt_walk* walk, const gx_wkt_clause* clause, int32_t index, int32_t* next) {
  *next = gx_wkt_skip(walk->block, index, walk->end);
  if (clause->take != nullptr) return clause->take(walk, index, next);
  if (walk->parts[clause->slot] != nullptr) {
    (clause->duplicate_alt ? gx_report_alt : gx_report)(walk->record, clause->duplicate,
                                                        walk->function);
    return false;
  }
  gx_errext* record = walk->caller_record ? walk->record : nullptr;
  walk->parts[clause->slot] = clause->parse(walk->block, index, next, record);
  return walk->parts[clause->slot] != nullptr;
}

}  // namespace

bool gx_wkt_walk_clauses(gx_wkt_walk* walk, int32_t first, const gx_wkt_clause* clauses,
                         int count, bool level_alt) {
  const gx_wkt_tokens* block = walk->block;
  int32_t i = first;
  while (i < walk->end && !walk->stopped) {
    const gx_wkt_token& token = block->tokens[i];
    if (token.level < walk->level + 1) {
      (level_alt ? gx_report_alt : gx_report)(walk->record, 460, walk->function);
      walk->failed = true;
      walk->stopped = true;
      break;
    }
    const gx_wkt_clause* clause = find_clause(token.value, clauses, count);
    if (clause == nullptr) {
      i = gx_wkt_skip(block, i, walk->end);
      continue;
    }
    int32_t next = i + 1;
    if (!take_clause(walk, clause, i, &next)) gx_wkt_walk_fail(walk);
    i = next > i ? next : i + 1;
  }
  if (!walk->stopped) {
    for (int k = 0; k < count; ++k) {
      if (clauses[k].missing != 0 && walk->parts[clauses[k].slot] == nullptr) {
        gx_report(walk->record, clauses[k].missing, walk->function);
        walk->failed = true;
      }
    }
  }
  return !walk->failed;
}

void gx_wkt_walk_drop(gx_wkt_walk* walk) {
  for (void*& part : walk->parts) {
    gx_object_del(part);
    part = nullptr;
  }
}

void gx_wkt_append_clause(char* buffer, const char* clause) {
  size_t length = std::strlen(buffer);
  size_t extra = std::strlen(clause);
  if (length + extra + 1 >= GX_WKT_SIZE - 2) return;
  buffer[length] = ',';
  std::memcpy(buffer + length + 1, clause, extra + 1);
}
