// A million generated calls of every member of every class, early- and late-bound, in two processes at once:
// a crash ends one of them, not the tests.
#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include "support/chance.h"
#include "support/host.h"
#include "support/temporary_file.h"

namespace misuse {
namespace {

constexpr unsigned kProcesses = 2, kCallsOfEach = 500'000;

/// This program once more, with a run of generated calls; what it prints goes to a file of its own.
class GeneratedRun {
 public:
  explicit GeneratedRun(unsigned seed) {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const HANDLE file =
        CreateFileW(output_.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS, 0, nullptr);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = startup.hStdError = file;
    std::wstring command = L'"' + std::wstring(program) + L"\" --calls " + std::to_wstring(kCallsOfEach) +
                           L" --seed " + std::to_wstring(seed);
    EXPECT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                               &process_));
    CloseHandle(file);
  }
  ~GeneratedRun() {
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
    std::filesystem::remove(output_);
  }
  GeneratedRun(const GeneratedRun&) = delete;
  GeneratedRun& operator=(const GeneratedRun&) = delete;

  DWORD exit_code() {
    DWORD code = 0;
    WaitForSingleObject(process_.hProcess, INFINITE);
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
  }
  [[nodiscard]] std::string output() const {
    std::ostringstream text;
    text << std::ifstream(output_).rdbuf();
    return text.str();
  }

 private:
  std::filesystem::path output_ = host::make_temporary_file();
  PROCESS_INFORMATION process_{};
};

TEST(GeneratedMisuse, AMillionCalls_NoneCrashesHangsLeaksOrFailsWithoutAText) {
  const unsigned seed = host::chosen_seed();
  std::array<std::unique_ptr<GeneratedRun>, kProcesses> runs;
  for (unsigned i = 0; i < kProcesses; ++i) runs[i] = std::make_unique<GeneratedRun>(seed + i);
  for (const auto& run : runs) {
    EXPECT_EQ(0u, run->exit_code());
    const std::string output = run->output();
    EXPECT_EQ(std::string::npos, output.find("MISUSE")) << output;
    EXPECT_NE(std::string::npos, output.find(" calls, seed ")) << output;
  }
}

}  // namespace
}  // namespace misuse
