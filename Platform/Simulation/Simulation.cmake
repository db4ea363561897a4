# The simulated user.
