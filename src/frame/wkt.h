// The WKT scanner and the walk that every family's from_tokens shares.
//
// gx_wkt_scan makes one normalised copy of a text in a block on the stack and
// cuts it into a flat array of tokens, each with its nesting level.  A family
// parser then walks the tokens of its own object (gx_wkt_walk) and hands each
// clause it knows to the parser of the clause's family.
#pragma once

#include <cstdint>

#include "gx_frame.h"

struct gx_wkt_token {
  char* value;    // NUL-terminated, inside the block's text
  int32_t level;  // nesting depth: a keyword stands at its object's level
};

struct gx_wkt_tokens {
  char text[GX_WKT_SIZE];
  gx_wkt_token tokens[GX_WKT_MAX_TOKENS];
  int32_t count;
  uint32_t severity;  // of a scan failure or warning, 0 if none
  uint32_t code;
  char message[GX_ERREXT_MESSAGE_SIZE];
};

// Scans text, starting at the first place keyword occurs (null or "": at the
// start).  0 on success (a warning may stand in the block), -1 on failure.
// Reports nothing by itself.
int gx_wkt_scan(gx_wkt_tokens* block, const char* text, const char* keyword);

// The form of every family's from_tokens: builds one object from the token at
// `start`; `next`, if not null, receives the index behind the object.
using gx_wkt_parser = void* (*)(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                gx_errext* record);

template <class T, T* (*Parse)(gx_wkt_tokens*, int32_t, int32_t*, gx_errext*)>
void* gx_wkt_parser_of(gx_wkt_tokens* block, int32_t start, int32_t* next, gx_errext* record) {
  return Parse(block, start, next, record);
}

struct gx_wkt_walk;

// A clause that an object's walk recognises.
struct gx_wkt_clause {
  const char* keyword;
  const char* alias;     // a second keyword read as the same clause, or null
  gx_wkt_parser parse;   // the parser of the clause's family
  int slot;              // index in gx_wkt_walk::parts
  uint16_t duplicate;    // message for a second occurrence
  uint16_t missing;      // message when absent; 0 if the clause is optional
  bool duplicate_alt;    // the duplicate message takes its second wording
  // A clause with rules of its own (parameters, a second GEOGCS) takes the
  // token itself: returns false on failure and sets *next.
  bool (*take)(gx_wkt_walk* walk, int32_t index, int32_t* next);
};

constexpr int GX_WKT_MAX_PARTS = 24;
constexpr int GX_WKT_AUTHORITY_SLOT = 0;  // every walk keeps its AUTHORITY here

// The state of one object's walk.
struct gx_wkt_walk {
  gx_wkt_tokens* block;
  gx_errext* record;     // the caller's record, or `local`
  bool caller_record;    // with a caller's record the walk stops at the first failure
  const char* function;  // "gx_<family>_from_string"
  int32_t start;
  int32_t end;
  int32_t level;
  const char* name;
  bool failed;
  bool stopped;  // the walk ended early: the missing-part tests do not run
  void* parts[GX_WKT_MAX_PARTS];
  gx_errext local;
};

// Steps shared by every from_tokens, up to and including the name: takes the
// record, checks the start and the token count, finds the object's end (and
// stores it in *next), checks the keyword (or `alias`) and reads the name.
// False when the object is refused
// (already reported).  `min_tokens` counts the keyword.
// Second wordings a family keeps for the messages of the walk's begin.
constexpr unsigned GX_WKT_ALT_459 = 1;  // "insufficient tokens" (projcs)
constexpr unsigned GX_WKT_ALT_462 = 2;  // "... int WKT string ..." (array)

bool gx_wkt_walk_begin(gx_wkt_walk* walk, gx_wkt_tokens* block, int32_t start, int32_t* next,
                       gx_errext* record, const char* keyword, const char* alias,
                       int32_t min_tokens, const char* function, unsigned alt_wordings = 0);

// The value token at `index` when it stands at the object's own level, else
// null (the caller reports its own message).
const char* gx_wkt_walk_value(const gx_wkt_walk* walk, int32_t index);

// Walks the clauses from `first` to the object's end: known clauses go to
// their parsers, duplicates and failures set `failed`, anything else is
// skipped with all it holds.  Then the missing-part tests run in table order.
// Returns true when every part is in order.  `level_alt` picks the second
// wording of message 460.
bool gx_wkt_walk_clauses(gx_wkt_walk* walk, int32_t first, const gx_wkt_clause* clauses,
                         int count, bool level_alt = false);

// Records a failure in the walk: stops it when the caller gave a record.
void gx_wkt_walk_fail(gx_wkt_walk* walk);

// The index behind the token at `index` and everything nested in it.
int32_t gx_wkt_skip(const gx_wkt_tokens* block, int32_t index, int32_t end);

// Writing: appends "," and the clause when what stands so far, the clause
// and one more character stay below 1022; a clause that doesn't fit is
// dropped in silence.
void gx_wkt_append_clause(char* buffer, const char* clause);

// Deletes every part the walk holds.
void gx_wkt_walk_drop(gx_wkt_walk* walk);
