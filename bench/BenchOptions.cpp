#include "BenchOptions.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <stdexcept>

namespace qel::bench {

namespace {

const std::map<std::string, bool Options::*>& switches() {
    static const std::map<std::string, bool Options::*> known = {
        {"--quick", &Options::quick},   {"--own", &Options::onlyOwnCost}, {"--pairs", &Options::onlyPairs},
        {"--verify", &Options::verify}, {"--trace", &Options::trace},     {"--list", &Options::list},
    };
    return known;
}

double positiveNumber(const std::string& text) {
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !(value > 0.0)) {
        throw std::invalid_argument(text + " is not a number above 0");
    }
    return value;
}

}  // namespace

Options Options::parse(int count, const char* const* arguments) {
    Options options;
    const auto valueAfter = [&](int& i) {
        if (i + 1 >= count) {
            throw std::invalid_argument(std::string(arguments[i]) + " needs a value");
        }
        return std::string(arguments[++i]);
    };
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        const auto found = switches().find(argument);
        if (found != switches().end()) {
            options.*(found->second) = true;
        } else if (argument == "--json") {
            options.json = valueAfter(i);
        } else if (argument == "--seconds") {
            options.seconds = positiveNumber(valueAfter(i));
        } else if (argument.compare(0, 2, "--") == 0) {
            throw std::invalid_argument("unknown option " + argument);
        } else {
            options.filters.push_back(argument);
        }
    }
    return options;
}

bool Options::wants(const std::string& name) const {
    return filters.empty() || std::any_of(filters.begin(), filters.end(), [&](const std::string& filter) {
               return name.find(filter) != std::string::npos;
           });
}

}  // namespace qel::bench
