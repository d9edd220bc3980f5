Dear reader,
this is a letter.
