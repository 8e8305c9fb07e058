# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""The detection model: x[1,3,H,W], H and W multiples of 32, to likelihoods [1,16,H/4,W/4], in which
channel 8i + 4j + 2k + l is the pixel (4y + 2i + k, 4x + 2j + l)."""
import numpy as np

from onnx_graph import Graph, set_attributes, set_inputs
from simplify import simplify


def convert(source, target):
    graph = Graph(source)
    simplify(graph)
    # Two deconvolutions of 2×2 pixels without overlap end the network. Each is a plain convolution
    # of one pixel whose channels are the pixels of its result. OpenCV's own deconvolution fails on
    # large pages.
    first, second = (node for node in graph.nodes if node.op_type == "ConvTranspose")
    (w1, b1), (w2, b2) = graph.weights(first), graph.weights(second)
    assert w1.shape[2:] == w2.shape[2:] == (2, 2) and w2.shape[1] == 1
    pointwise(graph, first, w1.transpose(2, 3, 1, 0).reshape(-1, w1.shape[0]), np.tile(b1, 4), 1)
    pointwise(graph, second, np.tile(w2[:, 0].transpose(1, 2, 0).reshape(4, -1), (4, 1)),
              np.full(16, b2[0]), 4)
    graph.save(target, [1, 3, 960, 960], [1, 16, 240, 240])


def pointwise(graph, node, weights, bias, groups):
    set_inputs(node, node.input[0])
    node.op_type = "Conv"
    set_attributes(node, kernel_shape=[1, 1], strides=[1, 1], pads=[0] * 4, dilations=[1, 1],
                   group=groups)
    graph.set_weights(node, weights[:, :, None, None], bias)
