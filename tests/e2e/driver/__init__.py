"""The real program in a world of its own, seen and moved through the accessibility bus alone."""
