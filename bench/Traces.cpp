#include "Traces.h"

#include <algorithm>
#include <cctype>

#include "CallTrace.h"

namespace qel::bench {

namespace {

/// Memory lies elsewhere in each form; a number in hexadecimal is an address or a handle.
std::string withoutAddresses(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        if (text.compare(i, 2, "0x") == 0) {
            result += "address";
            i += 2;
            while (i < text.size() && std::isxdigit(static_cast<unsigned char>(text[i])) != 0) {
                ++i;
            }
        } else {
            result += text[i++];
        }
    }
    return result;
}

/// What an operation is about. The C runtime and the system's files are not.
bool isMeasured(const std::string& call) {
    constexpr std::string_view kOthers[] = {"vsprintf",     "_vsnprintf",   "vprintf", "GetLastError",
                                            "SetLastError", "GetTickCount", "Sleep"};
    const std::string name = call.substr(0, call.find('('));
    return std::find(std::begin(kOthers), std::end(kOthers), name) == std::end(kOthers);
}

std::string listedAround(const test::Calls& module, const test::Calls& bare, std::size_t place) {
    const auto at = [place](const test::Calls& calls) {
        return place < calls.size() ? calls[place] : std::string("the end");
    };
    return "call " + std::to_string(place + 1) + ": module " + at(module) + ", bare " + at(bare) + " (" +
           std::to_string(module.size()) + " and " + std::to_string(bare.size()) + " calls)";
}

}  // namespace

test::Calls tracedCalls(const Form& form) {
    // Once before, so that it starts from where itself leaves off, as in a sample.
    form(1);
    test::CallTrace trace;
    form(1);
    test::Calls calls;
    for (const std::string& call : trace.calls()) {
        if (isMeasured(call)) {
            calls.push_back(withoutAddresses(call));
        }
    }
    return calls;
}

std::optional<std::string> differenceOfForms(const Forms& forms) {
    const test::Calls module = tracedCalls(forms.module);
    const test::Calls bare = tracedCalls(forms.bare);
    std::size_t place = 0;
    while (place < module.size() && place < bare.size() && module[place] == bare[place]) {
        ++place;
    }
    if (place == module.size() && place == bare.size()) {
        return std::nullopt;
    }
    return listedAround(module, bare, place);
}

}  // namespace qel::bench
