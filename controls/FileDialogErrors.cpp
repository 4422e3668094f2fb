#include "controls/FileDialogErrors.h"

#include <algorithm>
#include <array>

namespace corvane {
namespace {

struct Message {
  std::int32_t code;
  const char* text;
};

// The first is keyed on -1, not on the 65535 that the desktop reports for a
// dialog that could not be created: that code shows nothing.
constexpr std::array kMessages = {
    Message{-1, "Dialog box could not be created."},
    Message{1, "Invalid lStructSize element specified for the corresponding common dialog box."},
    Message{2,
            "Dialog box procedure failed during initialization. This error often occurs when "
            "insufficient memory is available."},
    Message{3,
            "ENABLETEMPLATE flag was set, but no template was provided.  Dialog templates are not "
            "supported in this component."},
    Message{4,
            "ENABLETEMPLATE flag was set, but no instance handle was provided.  Dialog templates "
            "are not supported in this component."},
    Message{5, "Dialog box procedure failed to load a specified string."},
    Message{6, "Dialog box procedure failed to find a specified resource."},
    Message{7, "Dialog box procedure failed to load a specified resource."},
    Message{8, "Dialog box procedure failed to lock a specified resource."},
    Message{9, "Dialog box procedure was unable to allocate memory for internal structures."},
    Message{10, "Dialog box procedure was unable to lock the memory associated with a handle."},
    Message{11, "ENABLEHOOK flag was set, but no hook function address was provided."},
    Message{12,
            "RegisterWindowMessage function returned an error value when it was called by the "
            "common dialog box procedure."},
    Message{4097, "PrintDlg function failed to load the required resources."},
    Message{4098,
            "PrintDlg function failed to parse the strings in the [devices] section of the WIN.INI "
            "file."},
    Message{4099,
            "The PD_RETURNDEFAULT flag was set in the Flags member of the PRINTDLGAPI structure "
            "but that either the hDevMode or hDevNames member was nonzero."},
    Message{4100, "PrintDlg function failed to load the device driver for the specified printer."},
    Message{4101,
            "Printer driver failed to initialize a DEVMODE structure. (This error value applies "
            "only to printer drivers written for Windows versions 3.0 and later.)"},
    Message{4102, "PrintDlg function failed during initialization."},
    Message{4103, "No printer drivers were found."},
    Message{4104, "Default printer does not exist."},
    Message{4105, "Data in the DEVMODE and DEVNAMES structures describes two different printers."},
    Message{4106, "PrintDlg function failed when it attempted to create an information context."},
    Message{4107,
            "The [devices] section of the WIN.INI file did not contain an entry for the requested "
            "printer."},
    Message{4108, "Default printer specified does not match the current default printer."},
    Message{8193, "No fonts exist."},
    Message{8194,
            "Size specified in the nSizeMax member of the CHOOSEFONT structure is less than the "
            "size specified in the nSizeMin member."},
    Message{12289, "Attempt to subclass a list box failed due to insufficient memory."},
    Message{12290, "Invalid filename specified."},
    Message{12291, "Buffer referenced by the File element for a filename is too small."},
    Message{16385,
            "An element in a structure for the corresponding common dialog box points to an "
            "invalid buffer."},
};

}  // namespace

std::string FileDialogMessage(std::int32_t extended_error) {
  const auto* at = std::find_if(kMessages.begin(), kMessages.end(), [&](const Message& message) {
    return message.code == extended_error;
  });
  return at == kMessages.end() ? "" : at->text;
}

}  // namespace corvane
