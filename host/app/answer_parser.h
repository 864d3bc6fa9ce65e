#pragma once

#include "host/app/input.h"
#include "host/app/point_input.h"
#include "host/app/prompt.h"

namespace ca {

/// Makes the answer to a prompt from what came in. On failure the reason is returned, as the command line says it.
struct ParsedAnswer
{
    std::optional<Answer> answer;
    OdString refusal;
};
ParsedAnswer parseAnswer(EAnswerKind kind, Prompt const& prompt, Input const& input, CoordinateFrame const& frame);

} // namespace ca
