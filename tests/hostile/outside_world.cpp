#include <winsock2.h>

#include "hostile/outside_world.h"

#include <cstdio>

namespace hostile {
namespace {

sockaddr_in local_address(unsigned short port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(port);
  return address;
}

}  // namespace

OutsideWorld::OutsideWorld() : pending_(new OVERLAPPED{}) {
  const std::wstring mark = std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(GetTickCount());
  wchar_t folder[MAX_PATH];
  GetTempPathW(MAX_PATH, folder);
  file_ = folder + (L"velmosav-" + mark + L".txt");
  std::FILE* const file = _wfopen(file_.c_str(), L"wb");
  EXPECT_NE(nullptr, file);
  if (file) {
    std::fputs(host::utf8(kSecret).c_str(), file);
    std::fclose(file);
  }

  pipe_ = L"\\\\.\\pipe\\velmosav-" + mark;
  pipe_end_ = CreateNamedPipeW(pipe_.c_str(), PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED, PIPE_TYPE_BYTE, 1,
                               4096, 4096, 0, nullptr);
  EXPECT_NE(INVALID_HANDLE_VALUE, pipe_end_);
  pipe_opened_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  pending_->hEvent = pipe_opened_;
  EXPECT_FALSE(ConnectNamedPipe(pipe_end_, pending_));
  EXPECT_EQ(static_cast<DWORD>(ERROR_IO_PENDING), GetLastError());

  WSADATA data;
  EXPECT_EQ(0, WSAStartup(MAKEWORD(2, 2), &data));
  listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  sockaddr_in address = local_address(0);
  EXPECT_EQ(0, bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address));
  EXPECT_EQ(0, listen(listener_, 5));
  int size = sizeof address;
  getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
  port_ = ntohs(address.sin_port);
}

OutsideWorld::~OutsideWorld() {
  DeleteFileW(file_.c_str());
  CancelIo(pipe_end_);
  WaitForSingleObject(pipe_opened_, 1000);
  CloseHandle(pipe_end_);
  CloseHandle(pipe_opened_);
  delete pending_;
  closesocket(listener_);
  WSACleanup();
}

std::wstring OutsideWorld::file_url() const {
  std::wstring url = L"file:///" + file_;
  for (wchar_t& letter : url) {
    if (letter == L'\\') letter = L'/';
  }
  return url;
}

std::wstring OutsideWorld::port_url() const {
  return L"http://127.0.0.1:" + std::to_wstring(port_) + L"/facture";
}

bool OutsideWorld::pipe_was_opened() const { return WaitForSingleObject(pipe_opened_, 0) == WAIT_OBJECT_0; }

void OutsideWorld::open_port() const {
  const sockaddr_in address = local_address(port_);
  const SOCKET client = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  EXPECT_EQ(0, connect(client, reinterpret_cast<const sockaddr*>(&address), sizeof address));
  closesocket(client);
}

bool OutsideWorld::port_was_opened() const {
  fd_set waiting;
  FD_ZERO(&waiting);
  FD_SET(listener_, &waiting);
  timeval at_once{0, 0};
  return select(0, &waiting, nullptr, nullptr, &at_once) == 1;
}

}  // namespace hostile
