// Editing a field: the part of the value in view, where the cursor stands, and what is accepted.

#include "tests/terminal.h"

#include <gtest/gtest.h>

namespace scrim {

TEST(Editing, KeysChangeTheValueAndTheView) {
  const std::string z(85, 'z');
  // Field; keys; what the field shows then, the cursor's column, and the value if it is modified.
  const std::tuple<std::string, std::string, const char*, int, std::string> cases[] = {
      // clang-format off
      {"8:abc:V", "de", "[abcde   ]", 7, "abcde"}, {"4:abcd:V", "", "[abcd]", 6, ""},
      {"4/9:abcd:V", "efg", "[defg]", 6, "abcdefg"}, {"8/2:abc:V", "x", "[abc     ]", 5, ""},
      {"4/6:abcdef:V", "x<BS>xy", "[cdex]", 6, "abcdex"},
      {"9/200::V", z, "[zzzzzzzzz]", 11, z.substr(6)},
      {"4/9:abcdef:V", times(7, "<Left>"), "[abcd]", 2, ""},
      {"4/9:abcdef:V", times(3, "<Left>") + times(6, "<Right>"), "[cdef]", 6, ""},
      {"4/9:abcdef:V", times(7, "<Left>") + "<Up>", "[cdef]", 6, ""},
      {"8:abc:V", "<Left>x", "[abxc    ]", 5, "abxc"}, {"8:abc:V", "<Ctrl-?>", "[abc     ]", 5, "abc"},
      {"8:abc:V", "<Left><Ctrl-?>", "[ab      ]", 4, "ab"}, {"8:abc:V", "<BS>", "[ab      ]", 4, "ab"},
      {"8:abc:V", times(3, "<Left>") + "<BS>", "[abc     ]", 2, ""},
      {"4/9:abcdef:V", times(5, "<Left>") + "<BS>", "[bcde]", 2, "bcdef"},
      {"4/9:abcdef:V", times(4, "<Left>") + "xyz", "[xyzc]", 5, "abxyzcdef"},
      {"8:1:V:NUMBER", "4x -.,e", "[14-.    ]", 6, "14-."},
      {"9::V:DATE", "1/2-*a 3", "[1/2* 3   ]", 8, "1/2* 3"},
      {"8::V:CHAR", " \xe4~<Ctrl-A><Ctrl-_><F4>", "[ ~      ]", 4, " ~"},
      {"8:a\tb:V", "x", "[a@bx    ]", 6, "a\tbx"}, {"8:\\\\p:V", "a b", "[***     ]", 5, "a b"},
      // clang-format on
  };
  for (const auto& [field, keys, shown, cursor, value] : cases) {
    SCOPED_TRACE(field + " " + keys);
    Terminal t({.term = "vt100"});
    t.form("etext:2,1," + field);
    t.type(keys);
    t.expect_text(1, 1, shown);
    t.expect_cursor(1, cursor);
    t.type("<LF>");
    const std::string output = value.empty() ? "" : "V=\"" + value + "\";export V;";
    t.expect_exit(0, output + "RETN=default\n");
  }
}

}  // namespace scrim
