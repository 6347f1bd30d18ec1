// Editing a field: the part of the value in view, where the cursor stands, and what is accepted.

#include "tests/terminal.h"

#include <gtest/gtest.h>

namespace scrim {

TEST(Editing, KeysChangeTheValueAndTheView) {
  const std::string z(85, 'z');
  // Width and value; keys (a vt100's \b is backspace, \177 deletes, \f is left, \22 right, \25 up);
  // what the field shows then, the cursor's column, and the value if it is modified.
  const std::tuple<const char*, const char*, const char*, int, const char*> cases[] = {
      // clang-format off
      {"8:abc:V", "de", "[abcde   ]", 7, "abcde"}, {"4:abcd:V", "", "[abcd]", 6, ""},
      {"4/9:abcd:V", "efg", "[defg]", 6, "abcdefg"}, {"8/2:abc:V", "x", "[abc     ]", 5, ""},
      {"4/6:abcdef:V", "x\bxy", "[cdex]", 6, "abcdex"},
      {"9/200::V", z.c_str(), "[zzzzzzzzz]", 11, z.c_str() + 6},
      {"4/9:abcdef:V", "\f\f\f\f\f\f\f", "[abcd]", 2, ""},
      {"4/9:abcdef:V", "\f\f\f\22\22\22\22\22\22", "[cdef]", 6, ""},
      {"4/9:abcdef:V", "\f\f\f\f\f\f\f\25", "[cdef]", 6, ""},
      {"8:abc:V", "\fx", "[abxc    ]", 5, "abxc"}, {"8:abc:V", "\f\177", "[ab      ]", 4, "ab"},
      {"8:abc:V", "\177", "[abc     ]", 5, "abc"}, {"8:abc:V", "\f\f\f\b", "[abc     ]", 2, ""},
      {"8:abc:V", "\b", "[ab      ]", 4, "ab"},
      {"4/9:abcdef:V", "\f\f\f\f\f\b", "[bcde]", 2, "bcdef"},
      {"4/9:abcdef:V", "\f\f\f\fxyz", "[xyzc]", 5, "abxyzcdef"},
      {"8:1:V:NUMBER", "4x -.,e", "[14-.    ]", 6, "14-."},
      {"9::V:DATE", "1/2-*a 3", "[1/2* 3   ]", 8, "1/2* 3"},
      {"8::V:CHAR", " \xe4~\1\37\033OS", "[ ~      ]", 4, " ~"},
      {"8:a\tb:V", "x", "[a@bx    ]", 6, "a\tbx"}, {"8:\\\\p:V", "a b", "[***     ]", 5, "a b"},
      // clang-format on
  };
  for (const auto& [field, keys, shown, cursor, value] : cases) {
    SCOPED_TRACE(testing::PrintToString(std::pair(field, keys)));
    Terminal t({.term = "vt100"});
    t.form(std::string("etext:2,1,") + field);
    t.type(keys);
    t.expect_text(1, 1, shown);
    t.expect_cursor(1, cursor);
    t.type("\n");
    const std::string output = *value ? std::string("V=\"") + value + "\";export V;" : "";
    t.expect_exit(0, output + "RETN=default\n");
  }
}

}  // namespace scrim
