#include "support/error_information.h"

namespace host {

ComPtr<IErrorInfo> error_information(const wchar_t* source, const wchar_t* description) {
  ComPtr<ICreateErrorInfo> creation;
  ComPtr<IErrorInfo> information;
  EXPECT_EQ(S_OK, CreateErrorInfo(creation.receive()));
  if (source) creation->SetSource(const_cast<wchar_t*>(source));
  if (description) creation->SetDescription(const_cast<wchar_t*>(description));
  EXPECT_EQ(S_OK, creation->QueryInterface(IID_IErrorInfo, information.receive_void()));
  return information;
}

void leave_error(const wchar_t* source, const wchar_t* description) {
  SetErrorInfo(0, error_information(source, description).get());
}

}  // namespace host
