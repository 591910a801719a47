#include "app/CommandLine.h"

namespace zolva {

namespace {

constexpr auto help = "Usage: zolva [OPTIONS]\n"
                      "\n"
                      "Shows where disk space went, and gives it back. Started again it comes to\n"
                      "the front. For a terminal there is zolvactl.\n"
                      "\n"
                      "Options:\n"
                      "  -h, --help   Print this help and exit\n"
                      "  --version    Print the version and exit\n";

} // namespace

std::optional<std::string> askedAnswer(const std::vector<std::string>& arguments)
{
    for (const std::string& argument : arguments) {
        if (argument == "-h" || argument == "--help") {
            return help;
        }
        if (argument == "--version") {
            return "zolva " ZOLVA_VERSION "\n";
        }
    }
    return std::nullopt;
}

std::optional<std::string> complaintAbout(const std::vector<std::string>& arguments)
{
    if (arguments.empty()) {
        return std::nullopt;
    }
    return "zolva: unknown argument: " + arguments.front() + "\nTry 'zolva --help'.\n";
}

} // namespace zolva
