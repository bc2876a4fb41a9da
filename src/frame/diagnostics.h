// Diagnostics: the one table of messages, keyed by their stable number, and
// the functions that fill a gx_errext record and hand it to the message hook.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>

#include "gx_frame.h"

// Fills the record and dispatches it. The record must not be null.
void gx_errext_set(gx_errext* record, uint32_t severity, uint32_t category, uint32_t code,
                   const char* function, const char* message);
// Formats the message into a 1280-byte buffer, then gx_errext_set.
void gx_errext_setf(gx_errext* record, uint32_t severity, uint32_t category, uint32_t code,
                    const char* function, const char* format, ...)
    __attribute__((format(printf, 6, 7)));
// Hands the record to the callback when both masks let it through.
void gx_msg_dispatch(const gx_errext* record);

// Reports message `code` of the table (its first wording) with the table's
// severity and category; the arguments fill the wording's placeholders.
void gx_report(gx_errext* record, uint32_t code, const char* function, ...);
// The same for the second wording of a number that has two.
void gx_report_alt(gx_errext* record, uint32_t code, const char* function, ...);

// The same with a severity of the caller's choice, for messages that are an
// error in one case and a warning in another.
void gx_report_severity(gx_errext* record, uint32_t severity, uint32_t code,
                        const char* function, ...);

// Formats wording `variant` (0 or 1) of message `code` into text; returns the
// message's severity, 0 for a number that has no such wording.
uint32_t gx_message_vformat(char* text, size_t size, uint32_t code, int variant, va_list args);

// Takes the caller's record or, when it is null, the local one, and clears it:
// the rule at the entry of every _errext function.
inline gx_errext* gx_errext_begin(gx_errext* caller, gx_errext* local) {
  gx_errext* record = caller != nullptr ? caller : local;
  gx_errext_clear(record);
  return record;
}

// Prints a double for a message: gx_dtoa at 16 digits.
struct gx_number_text {
  char text[GX_NUMBER_SIZE];
  explicit gx_number_text(double value) { gx_dtoa(value, text, 16); }
};

// Builds "gx_<family>_<operation>" for the function field of a record.
struct gx_function_name {
  char text[GX_NAME_SIZE];
  gx_function_name(const char* family, const char* operation);
};
