-- SPDX-License-Identifier: MIT
-- The store of the harvesters. No key and no index: uniqueness is kept by those who write.
-- The program compares with a "nocase" of its own, which folds all letters of its code page.
create table [emails] (
  [email] text collate nocase check (length([email]) <= 255),
  [date] text  -- local time, "2026-01-02 15:04:05"
);
create table [websites] (
  [website] text collate nocase check (length([website]) <= 255),
  [date] text
);
create table [searches] (
  [search] text collate nocase check (length([search]) <= 255)
);
