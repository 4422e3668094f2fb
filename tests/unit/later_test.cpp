#include "tests/contract/later_contract.h"
#include "tests/fakes/fake_time.h"

namespace corvane::contract {

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, LaterContract, fakes::FakeTime);

}  // namespace corvane::contract
