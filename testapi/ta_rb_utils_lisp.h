#pragma once

// LISP texts: expressions as lists of result buffers and back, entity lists as chains of group codes. The texts
// themselves: docs/formats.md, "LISP text".

#include "testapi/ta_host.h"

namespace ta {

/// Results of the functions below. A function that fails hands out nothing.
enum ELispStatus : int
{
    kLispOk = 0,
    kLispMalformed = -1,
    kLispNoMemoryForChain = -2, ///< of lisp2sds
    kLispNoMemory = -3,         ///< of the others
    kLispNumberOutOfRange = -5
};

/// Reads a text that holds one expression: RTLB, RTLE and RTDOTE for brackets and dots, RTSTR for texts and, in
/// upper case, symbols, RTREAL, RTLONG, RTNIL. `*result` is the caller's; null for an empty text and when reading
/// fails. With a null `result` the text is only checked. A null text counts as an empty one.
int lspexpr2rb(wchar_t const* text, sds_resbuf** result);

/// Makes a text from which lspexpr2rb() reads a list equal to this one. Texts and symbols are nodes of one kind;
/// all stand in quotes, but for those behind the name of a shell command that only a symbol can say. `text` stays
/// as it is on failure: kLispMalformed for what is no single expression, nodes that the reader never makes, and
/// texts behind a shell command that neither quotes nor a symbol can say (such as a quote, or a backslash at the
/// end in lower case); kLispNumberOutOfRange for numbers that do not come back: infinite ones, NaN, integers that
/// no double holds.
int rb2lspexpr(sds_resbuf const* list, OdString& text);

/// Turns the list of an entity, ((0 . "LINE") (10 1.0 2.0 0.0) ...), into nodes whose types are group codes.
/// Extended data, (-3 ("NAME" (1000 . "text") ...) ...), become a node 1001 for each name and those of its values.
/// `*result` is the caller's; null for an empty list, nil or null, and on failure. `result` must not be null.
int lisp2sds(sds_resbuf const* list, sds_resbuf** result);

/// For lists taken from drawing files, which know objects by their handles: in pairs whose value is the name of an
/// object, such as (330 . "1F"), the handle becomes the name of the object in this drawing, or of nothing where it
/// has none. In place, before lisp2sds(), which takes names alone. Texts that are no handles stay. kLispNoMemory
/// leaves the rest of the list as it is.
int nameHandles(sds_resbuf* list, OdDbDatabase& database);

} // namespace ta

/// Whether a command takes its text answers as they stand, without escape sequences. The marks "'", "_" and "." in
/// front of the name are passed over. False for a name that no command has.
bool isShellCommand(wchar_t const* name);
