#include "host/app/sds_cmd.h"

#include "host/app/ca_app.h"
#include "host/app/command_line.h"
#include "host/app/command_processor.h"
#include "host/sds/ca_resbuf.h"

int sds_cmd(sds_resbuf const* list)
{
    ca::CommandProcessor& processor = ca::CommandProcessor::get();
    if (!list) {
        processor.cancelAll();
        return RTNORM;
    }
    std::optional<std::vector<ca::Input>> inputs = ca::inputsFrom(list);
    if (!inputs) {
        ca::app()->commandLine().error(L"The list of answers holds a value that cannot be an answer.");
        return RTERROR;
    }
    return processor.feed(std::move(*inputs)) ? RTNORM : RTERROR;
}

int sds_command(int type, ...)
{
    if (type == 0 || type == RTNONE)
        return sds_cmd(nullptr);
    std::va_list pairs;
    va_start(pairs, type);
    ca::RbListPtr const list(sds_vbuildlist(type, pairs));
    va_end(pairs);
    return list ? sds_cmd(list.get()) : RTERROR;
}
