#include "controls/FileDialogErrors.h"

#include <gtest/gtest.h>

namespace corvane::tests {
namespace {

struct Row {
  std::int32_t code;
  const char* text;
};

class FileDialogError : public testing::TestWithParam<Row> {};

TEST_P(FileDialogError, HasItsMessage) {
  EXPECT_EQ(FileDialogMessage(GetParam().code), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    All, FileDialogError,
    testing::Values(
        Row{-1, "Dialog box could not be created."},
        Row{1, "Invalid lStructSize element specified for the corresponding common dialog box."},
        Row{2,
            "Dialog box procedure failed during initialization. This error often occurs when "
            "insufficient memory is available."},
        Row{3,
            "ENABLETEMPLATE flag was set, but no template was provided.  Dialog templates are not "
            "supported in this component."},
        Row{4,
            "ENABLETEMPLATE flag was set, but no instance handle was provided.  Dialog templates "
            "are not supported in this component."},
        Row{5, "Dialog box procedure failed to load a specified string."},
        Row{6, "Dialog box procedure failed to find a specified resource."},
        Row{7, "Dialog box procedure failed to load a specified resource."},
        Row{8, "Dialog box procedure failed to lock a specified resource."},
        Row{9, "Dialog box procedure was unable to allocate memory for internal structures."},
        Row{10, "Dialog box procedure was unable to lock the memory associated with a handle."},
        Row{11, "ENABLEHOOK flag was set, but no hook function address was provided."},
        Row{12,
            "RegisterWindowMessage function returned an error value when it was called by the "
            "common dialog box procedure."},
        Row{4097, "PrintDlg function failed to load the required resources."},
        Row{4098,
            "PrintDlg function failed to parse the strings in the [devices] section of the WIN.INI "
            "file."},
        Row{4099,
            "The PD_RETURNDEFAULT flag was set in the Flags member of the PRINTDLGAPI structure "
            "but that either the hDevMode or hDevNames member was nonzero."},
        Row{4100, "PrintDlg function failed to load the device driver for the specified printer."},
        Row{4101,
            "Printer driver failed to initialize a DEVMODE structure. (This error value applies "
            "only to printer drivers written for Windows versions 3.0 and later.)"},
        Row{4102, "PrintDlg function failed during initialization."},
        Row{4103, "No printer drivers were found."}, Row{4104, "Default printer does not exist."},
        Row{4105, "Data in the DEVMODE and DEVNAMES structures describes two different printers."},
        Row{4106, "PrintDlg function failed when it attempted to create an information context."},
        Row{4107,
            "The [devices] section of the WIN.INI file did not contain an entry for the requested "
            "printer."},
        Row{4108, "Default printer specified does not match the current default printer."},
        Row{8193, "No fonts exist."},
        Row{8194,
            "Size specified in the nSizeMax member of the CHOOSEFONT structure is less than the "
            "size specified in the nSizeMin member."},
        Row{12289, "Attempt to subclass a list box failed due to insufficient memory."},
        Row{12290, "Invalid filename specified."},
        Row{12291, "Buffer referenced by the File element for a filename is too small."},
        Row{16385,
            "An element in a structure for the corresponding common dialog box points to an "
            "invalid buffer."}),
    [](const auto& row) {
      return (row.param.code < 0 ? "minus" : "code") + std::to_string(std::abs(row.param.code));
    });

TEST(FileDialogErrors, OtherCodesHaveNone) {
  for (const std::int32_t code : {0, 13, 65535, 4096, 12292, 99999}) {
    EXPECT_EQ(FileDialogMessage(code), "") << code;
  }
}

}  // namespace
}  // namespace corvane::tests
