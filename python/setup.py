"""The wheel holds a library of one platform, and no code of one Python."""

from setuptools import Distribution, setup
from wheel.bdist_wheel import bdist_wheel


class PlatformDistribution(Distribution):
    def has_ext_modules(self):
        return True


class PlatformWheel(bdist_wheel):
    def get_tag(self):
        return ("py3", "none", super().get_tag()[2])


setup(distclass=PlatformDistribution, cmdclass={"bdist_wheel": PlatformWheel})
