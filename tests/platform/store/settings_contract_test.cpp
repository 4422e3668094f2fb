// The store of files keeps what the port promises.
#include "tests/contract/settings_contract.h"

#include "platform/linux/store/ini_settings_store.h"
#include "tests/temporary_folder.h"

namespace corvane::contract {
namespace {

struct IniMaker {
  test::TemporaryFolder folder;
  desktop::IniSettingsStore store{folder / "user", {}};
};

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Ini, SettingsContract, IniMaker);

}  // namespace corvane::contract
