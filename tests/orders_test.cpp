// The customers' example with real databases: what is typed into its forms is what the table holds.

#include "tests/terminal.h"

#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>
#include <sys/wait.h>

namespace scrim {

static const std::string example = SCRIM_SOURCE "/examples/orders/";
// What is waited for, since a database may take its time, and what is typed then.
static const std::string steps[][2] = {
    {"Add a customer", "A<Enter>"},
    {"New customer", "x'); drop table customers; --<Tab>c/o: $(exit)<Tab>1/31/1999<Tab>12.25<LF>"},
    {"Stored as customer 1.", "A<Enter>"},
    {"New customer", "O'Brien's" + times(5, "<Enter>")},
    {"Stored as customer 2.", "F<Enter>"},
    {"Find customers", "x'%<Tab><Tab>1/31/1999<Tab>12.25<LF>"},
    {"12.25 01/31/1999 x'); drop table cus c/o: $(exit)  ", "<LF>"},
    {"Change a customer", "!'<Tab><Tab>" + times(10, "<BS>") + "<LF>"},
    {"Customer 1 is changed.", "A<Enter>"},
    {"New customer", "Nobody<Tab><Tab><Tab>1-1<LF>"},
    {"This is no value for CREDIT", "x"},
    {"[Nobody", "<Ctrl-X>"},
    {"Add a customer", "Q<Enter>"},
    // Another program has stored a customer with bytes that end fields and rows.
    {"Add a customer", "F<Enter>"},
    {"Find customers", times(5, "<Enter>")},
    {"  A 1 or true Forged  x y 2 z", "<Down><Enter><Enter>"},
    {"[O'Brien's  ", "!" + times(5, "<Enter>")},
    {"Customer 2 is changed.", "F<Enter>"},
    {"Find customers", "<LF>"},
    {"12.25            x'); drop table", times(3, "<Down>") + "<LF>"},
    {"No customer was chosen.", "Q<Enter>"},
};
static const std::string name = "A\0361 or true\037Forged", town = "x\037y\n2\rz";

static void expect_stored(Terminal& t, const std::string& sql) {
  std::filesystem::create_directory(t.path("a:b,c"));
  t.env("TMPDIR", t.path("a:b,c"));
  t.shell(example + "orders.sh;" + sql + " \"insert into customers (name, town) values ('" + name +
          "', '" + town + "')\";" + example + "orders.sh;" + sql +
          " 'select * from customers order by 1'");
  for (const auto& [shown, typed] : steps) {
    t.emulator.await_key(20, 10000);
    t.expect_shown(shown);
    t.type(typed);
  }
  t.expect_exit(0, "1|x'); drop table customers; --!'|c/o: $(exit)||12.25\n2|O'Brien's!|||\n3|" +
                       name + "|" + town + "||\n");
}

TEST(Orders, InSqlite) {
  Terminal t;
  expect_stored(t, "sqlite3 customers.db");
}

TEST(Orders, InPostgres) {
  Terminal t;
  // The server of root runs as somebody else, who has to get to its directory.
  std::filesystem::permissions(t.path("."), std::filesystem::perms(0711));
  const int status = std::system((example + "cluster.sh start " + t.path("server")).c_str());
  if (WEXITSTATUS(status) == 127) GTEST_SKIP() << "PostgreSQL is not installed";
  ASSERT_EQ(status, 0);
  t.env("PGHOST", t.path("server"));
  expect_stored(t, "psql -qAtXc");
  EXPECT_EQ(std::system((example + "cluster.sh stop " + t.path("server")).c_str()), 0);
}

}  // namespace scrim
