#include "apps/vornbench/command_line.h"
#include "apps/vornbench/commands.h"
#include "apps/vornbench/usage_error.h"
#include "vorntest/config_error.h"

#include <iostream>
#include <stdexcept>

namespace {

ExitCode execute(Options const& options)
{
    switch (options.command) {
    case Command::Run: return runTests(options);
    case Command::List: return listTests(options);
    case Command::Audit: return auditDrawings(options);
    case Command::Convert: return convertDrawing(options);
    case Command::Compare: return compareDrawings(options);
    }
    return ExitCode::InternalError;
}

ExitCode refused(std::exception const& error, ExitCode code)
{
    std::cout.flush();
    std::cerr << (code == ExitCode::InternalError ? "vornbench: internal error: " : "") << error.what() << '\n';
    return code;
}

ExitCode guardedMain(int argc, char** argv)
{
    auto const parsed = parseCommandLine(argc, argv, std::cout, std::cerr);
    if (ExitCode const* const code = std::get_if<ExitCode>(&parsed))
        return *code;
    try {
        return execute(std::get<Options>(parsed));
    } catch (vorntest::ConfigError const& error) {
        return refused(error, ExitCode::Usage);
    } catch (UsageError const& error) {
        return refused(error, ExitCode::Usage);
    } catch (std::exception const& error) {
        return refused(error, ExitCode::InternalError);
    }
}

} // namespace

int main(int argc, char** argv)
{
    return static_cast<int>(guardedMain(argc, argv));
}
