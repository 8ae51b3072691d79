#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

/// The finished program as a user calls it.

namespace qel::test {

struct Ended {
    DWORD code = 0;
    std::string output;
    std::string errors;
};

inline std::filesystem::path folderOfPrograms() {
    wchar_t name[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, name, MAX_PATH);
    return std::filesystem::path(name).parent_path();
}

inline std::filesystem::path temporary(const std::string& name) {
    return std::filesystem::temp_directory_path() / ("qelview-test-" + name);
}

inline HANDLE openForChild(const std::filesystem::path& file) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

inline std::string contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file);
    std::ostringstream content;
    content << stream.rdbuf();
    return content.str();
}

/// Runs qelview with arguments and waits for its end.
/// @param folder the current folder of the program; empty for that of the tests.
inline Ended runViewer(const std::wstring& arguments, const std::filesystem::path& folder = {}) {
    const std::filesystem::path outputFile = temporary("stdout.txt");
    const std::filesystem::path errorFile = temporary("stderr.txt");
    HANDLE const output = openForChild(outputFile);
    HANDLE const errors = openForChild(errorFile);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = INVALID_HANDLE_VALUE;
    startup.hStdOutput = output;
    startup.hStdError = errors;
    std::wstring line = L"\"" + (folderOfPrograms() / "qelview.exe").wstring() + L"\" " + arguments;
    PROCESS_INFORMATION process{};
    Ended ended;
    const BOOL isStarted = CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                          folder.empty() ? nullptr : folder.c_str(), &startup, &process);
    CloseHandle(output);
    CloseHandle(errors);
    if (isStarted == FALSE) {
        ADD_FAILURE() << "qelview.exe does not start: " << GetLastError();
        return ended;
    }
    constexpr DWORD kLongest = 60000;
    EXPECT_EQ(WaitForSingleObject(process.hProcess, kLongest), WAIT_OBJECT_0);
    GetExitCodeProcess(process.hProcess, &ended.code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    ended.output = contentOf(outputFile);
    ended.errors = contentOf(errorFile);
    return ended;
}

inline std::wstring quoted(const std::filesystem::path& file) {
    return L"\"" + file.wstring() + L"\"";
}

}  // namespace qel::test
